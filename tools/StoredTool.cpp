// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/StoredTool.h"

#include "platform/jobs/Exceptions.h"
#include "tools/PolygonGraphicObject.h"
#include "tools/SketchPlane.h"
#include "tools/TeethGenerator.h"

#include <QCoreApplication>

#include <algorithm>

namespace Freecut {

namespace {

constexpr char const* classNames[] = {"Freecut::PolygonGraphicObject",
                                      "Freecut::CylinderGraphicObject",
                                      "Freecut::CuboidGraphicObject"};

TeethEdge confirmedTeeth(TeethEdge edge)
{
    if (!edge.hasTeeth || !edge.applied)
        return {};
    edge.editing = false;
    edge.basePoints.clear();
    edge.handlePoints.clear();
    edge.teethPoints.clear();
    return edge;
}

bool isWithoutPoints(TeethEdge const& edge)
{
    return edge.hasTeeth && !edge.applied;
}

/// By the generator, which works on the record of a polygon.
void makeTeeth(std::vector<TeethEdge>& edges, std::vector<UPoint3<float>> const& points,
               UVector3<float> const& extrudeVector)
{
    PolygonProperty record;
    record.setKeyPoints(points);
    record.setExtrudeVector(extrudeVector);
    record.setEdgeRecords(edges);
    TeethGenerator generator;
    for (std::size_t i = 0; i < edges.size(); ++i) {
        if (!isWithoutPoints(edges[i]))
            continue;
        generator.setParas(parasOf(edges[i]));
        generator.beginEdge(record, int(i));
        if (generator.generate(record) != TeethFault::None)
            throw Mell::Exception(
                QCoreApplication::translate(
                    "Freecut::StoredTool",
                    "The teeth of edge %1 do not fit it. Choose fewer, smaller or other ones.")
                    .arg(i + 1)
                    .toStdString());
        generator.confirm(record);
        edges[i] = record.getEdgeRecords()[i];
    }
}

}  // namespace

char const* StoredTool::className() const
{
    return classNames[std::size_t(kind)];
}

StoredTool StoredTool::of(VolumeGraphicObject& tool, ViewPlace const& view)
{
    VolumeProperty const& record = tool.getVolumeProperty();
    StoredTool stored;
    auto const name = std::find(std::begin(classNames), std::end(classNames), tool.getClassName());
    stored.kind = Kind(name - std::begin(classNames));
    stored.view = view;
    stored.depth = record.getSketchDepth();
    stored.values = valuesOf(tool);
    stored.points = record.getKeyPoints();
    if (stored.kind != Kind::Polygon) {
        // The others are handles, which follow from the values.
        stored.points.resize(1);
        return stored;
    }
    for (TeethEdge const& edge :
         static_cast<PolygonGraphicObject&>(tool).getProperty().getEdgeRecords())
        stored.edges.push_back(confirmedTeeth(edge));
    return stored;
}

void StoredTool::settle(GLCamera const& camera, VolumeProperty const& record)
{
    if (!depth || *depth != record.getSketchDepth()) {
        SketchPlane const plane(camera, record.getSketchDepth());
        auto const project = [&](std::vector<UPoint3<float>>& list) {
            for (UPoint3<float>& point : list)
                point = plane.project(plane.toEye(point));
        };
        project(points);
        for (TeethEdge& edge : edges)
            project(edge.appliedPoints);
        depth = record.getSketchDepth();
    }
    if (std::any_of(edges.begin(), edges.end(), isWithoutPoints))
        makeTeeth(edges, points, record.getExtrudeVector());
}

}  // namespace Freecut
