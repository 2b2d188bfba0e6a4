// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/PolygonViewProvider.h"

#include "tools/PolygonGraphicObject.h"
#include "tools/PolygonOutline.h"

#include <algorithm>

namespace Freecut {

namespace {

/// Of the handles on teeth.
constexpr Color255 teethColor{104, 34, 139, 122};

}  // namespace

Base::Type PolygonViewProvider::classTypeId = Base::Type::badType();

void PolygonViewProvider::init()
{
    initSubclass(classTypeId, "Freecut::PolygonViewProvider", "Freecut::VolumeViewProvider",
                 create);
}

void* PolygonViewProvider::create()
{
    return new PolygonViewProvider;
}

Base::Type PolygonViewProvider::getTypeId() const
{
    return classTypeId;
}

std::string PolygonViewProvider::getClassName() const
{
    return "Freecut::PolygonViewProvider";
}

void PolygonViewProvider::initGL()
{
    initSolidGL();
}

void PolygonViewProvider::buildMarkers()
{
    PolygonProperty const* const record = property();
    if (!record)
        return;
    std::vector<UPoint3<float>> points = record->getKeyPoints();
    for (auto const list : {&TeethEdge::basePoints, &TeethEdge::handlePoints})
        for (TeethEdge const& edge : record->getEdgeRecords())
            if (edge.hasTeeth && edge.editing)
                points.insert(points.end(), (edge.*list).begin(), (edge.*list).end());
    buildMarkersAt(points);
}

PolygonProperty const* PolygonViewProvider::property() const
{
    return m_object ? &static_cast<PolygonGraphicObject*>(m_object)->getProperty() : nullptr;
}

int PolygonViewProvider::vertexMarkers() const
{
    PolygonProperty const* const record = property();
    return record ? std::min(markerCount(), int(record->getKeyPoints().size())) : 0;
}

void PolygonViewProvider::drawMarkersGL21()
{
    int const vertices = vertexMarkers();
    uploadMarkers();
    drawMarkersOf21(markerColor, 0, vertices);
    drawMarkersOf21(teethColor, vertices, markerCount() - vertices);
}

void PolygonViewProvider::drawMarkersGL33()
{
    int const vertices = vertexMarkers();
    uploadMarkers();
    drawMarkersOf33(markerColor, 0, vertices);
    drawMarkersOf33(teethColor, vertices, markerCount() - vertices);
}

std::unique_ptr<VolumeOutline> PolygonViewProvider::makeOutline() const
{
    auto* const tool = static_cast<PolygonGraphicObject*>(getObject());
    return std::make_unique<PolygonOutline>(tool->getProperty());
}

}  // namespace Freecut
