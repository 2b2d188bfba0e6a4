// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/PolygonOutline.h"

#include "platform/view/GLCamera.h"
#include "tools/LoopNesting.h"
#include "tools/OutlineCrossings.h"
#include "tools/PolygonProperty.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace Freecut {

namespace {

// The outline is resolved in whole thousandths of a millimetre.
constexpr float gridUnitsPerMm = 1000.0f;

/// Up to here outlines are derived in a few milliseconds, whatever they look like.
constexpr std::size_t fewPoints = 64;

constexpr char const* tooManyCrossings = QT_TRANSLATE_NOOP(
    "Tools", "The outline crosses itself too often. Draw it with fewer crossings.");

FlatRing gridPoints(Ring const& outline, SketchPlane const& plane)
{
    FlatRing points;
    points.reserve(outline.size());
    for (UPoint3<float> const& point : outline) {
        UPoint3<float> const eye = plane.toEye(point);
        points.emplace_back(std::trunc(eye.X() * gridUnitsPerMm),
                            std::trunc(eye.Y() * gridUnitsPerMm));
    }
    return points;
}

Loops worldLoops(FlatLoops const& loops, SketchPlane const& plane)
{
    Loops world;
    world.reserve(loops.size());
    for (FlatRing const& loop : loops) {
        Ring& ring = world.emplace_back();
        ring.reserve(loop.size());
        for (UPoint2<float> const& point : loop)
            ring.push_back(plane.toWorld(point.X() / gridUnitsPerMm, point.Y() / gridUnitsPerMm));
    }
    return world;
}

void pin(std::vector<UPoint3<float>> TeethEdge::*points, std::vector<TeethEdge>& edges,
         PolygonProperty::PointLists const& eyePoints, SketchPlane const& plane)
{
    for (std::size_t i = 0; i < std::min(edges.size(), eyePoints.size()); ++i) {
        std::vector<UPoint3<float>>& list = edges[i].*points;
        for (std::size_t k = 0; k < std::min(list.size(), eyePoints[i].size()); ++k)
            list[k] = plane.project(eyePoints[i][k]);
    }
}

}  // namespace

PolygonOutline::PolygonOutline(PolygonProperty& polygon)
    : VolumeOutline(polygon, Kind::ManyLoops), m_polygon(polygon)
{}

VolumeOutline::Derivation PolygonOutline::derivation(GLCamera const& camera) const
{
    if (outlineWithTeeth().size() <= fewPoints)
        return {};
    return [camera, record = m_polygon](WorkPoll const& poll) {
        PolygonProperty copy = record;
        copy.setPreviewing(false);
        PolygonOutline outline(copy);
        outline.update(camera, false, false, poll);
        return std::move(outline.m_outlines);
    };
}

VolumeOutline::Rounding PolygonOutline::rounding() const
{
    return {m_polygon.getRoundCorners(), m_polygon.getCornerRadius()};
}

void PolygonOutline::pinToScreen(SketchPlane const& plane)
{
    VolumeOutline::pinToScreen(plane);
    std::vector<TeethEdge>& edges = m_polygon.getEdgeRecords();
    pin(&TeethEdge::basePoints, edges, m_polygon.getEyeBasePoints(), plane);
    pin(&TeethEdge::handlePoints, edges, m_polygon.getEyeHandlePoints(), plane);
    pin(&TeethEdge::teethPoints, edges, m_polygon.getEyeTeethPoints(), plane);
    pin(&TeethEdge::appliedPoints, edges, m_polygon.getEyeAppliedPoints(), plane);
}

void PolygonOutline::deriveNominal(SketchPlane const& plane, WorkPoll const& poll)
{
    m_outlines.teethLoops = teethUnderEdit();
    Ring outline = outlineWithTeeth();
    ResolvedLoops const resolved = resolveSelfIntersections(gridPoints(outline, plane), poll);
    if (resolved.isTooComplicated) {
        outline.push_back(outline.front());
        m_outlines.refuse(QCoreApplication::translate("Tools", tooManyCrossings).toStdString(),
                          {std::move(outline)});
        return;
    }
    m_outlines.solidLoops = worldLoops(resolved.solid, plane);
    m_outlines.residualLoops = worldLoops(resolved.residual, plane);
    for (Ring& loop : m_outlines.solidLoops)
        if (!isLoopCounterClockwise(loop, m_polygon.getExtrudeVector()))
            std::reverse(loop.begin(), loop.end());
}

Ring PolygonOutline::outlineWithTeeth() const
{
    std::vector<UPoint3<float>> const& points = m_polygon.getKeyPoints();
    std::vector<TeethEdge> const& edges = m_polygon.getEdgeRecords();
    Ring outline;
    auto const append = [&](std::vector<UPoint3<float>> const& teeth) {
        outline.insert(outline.end(), teeth.begin(), teeth.end());
    };
    for (std::size_t i = 0; i < points.size(); ++i) {
        outline.push_back(points[i]);
        if (i >= edges.size() || !edges[i].hasTeeth)
            continue;
        if (edges[i].editing)
            append(edges[i].teethPoints);
        else if (edges[i].applied)
            append(edges[i].appliedPoints);
    }
    return outline;
}

Loops PolygonOutline::teethUnderEdit() const
{
    std::vector<UPoint3<float>> const& points = m_polygon.getKeyPoints();
    std::vector<TeethEdge> const& edges = m_polygon.getEdgeRecords();
    Loops loops;
    for (std::size_t i = 0; i < std::min(points.size(), edges.size()); ++i) {
        if (!edges[i].hasTeeth || !edges[i].editing)
            continue;
        Ring& loop = loops.emplace_back(Ring{points[i]});
        loop.insert(loop.end(), edges[i].teethPoints.begin(), edges[i].teethPoints.end());
        loop.push_back(points[(i + 1) % points.size()]);
    }
    return loops;
}

}  // namespace Freecut
