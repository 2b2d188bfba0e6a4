// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ToolScene.h"

#include "display/GraphicViewProvider.h"
#include "display/PlacedView.h"
#include "display/RegisterViewProviders.h"
#include "display/VolumeViewProvider.h"
#include "platform/document/MeshDocument.h"
#include "tools/ViewAxes.h"
#include "tools/VolumeOutline.h"
#include "tools/VolumeProperty.h"

ToolScene::ToolScene(Mesh::Document& document, Freecut::ViewPlace const& place)
    : m_document(document), m_viewIndex(place.standard)
{
    Freecut::registerViewProviders();
    m_view.setDocument(&document);
    Freecut::putView(m_view, place);
}

ToolScene::~ToolScene()
{
    m_view.setDocument(nullptr);
}

int ToolScene::axis() const
{
    return Freecut::axisAlongView(m_viewIndex);
}

void ToolScene::place(Freecut::VolumeGraphicObject& tool, std::vector<UPoint2<float>> const& points)
{
    Freecut::VolumeProperty& record = tool.getVolumeProperty();
    measure(record);
    for (UPoint2<float> const& point : points)
        record.getKeyPoints().push_back(pointOfTool(point, record.getSketchDepth()));
    m_document.addObject(&tool, "tool", false);
}

void ToolScene::measure(Freecut::VolumeProperty& record) const
{
    record.updateDepth();
    record.rememberView();
}

void ToolScene::enter(Freecut::VolumeGraphicObject& tool)
{
    m_document.addObject(&tool, "tool", false);
    tool.getViewProvider()->updateGeometry();
}

UPoint3<float> ToolScene::pointOfTool(UPoint2<float> const& free, float sketchDepth) const
{
    UPoint3<float> point;
    point[axis() == 0 ? 1 : 0] = free.X();
    point[axis() == 2 ? 1 : 2] = free.Y();
    m_view.getEyePointFromWCSPoint(point);
    point.Z() = sketchDepth;
    m_view.getWCSPointFromEyePoint(point);
    return point;
}

Freecut::ToolOutlines const& ToolScene::outlinesOf(Freecut::VolumeGraphicObject& tool) const
{
    auto const* const provider =
        static_cast<Freecut::VolumeViewProvider*>(m_document.getViewProvider(&tool));
    return provider->getOutline()->outlines();
}

UPoint2<float> ToolScene::freeCoordinates(UPoint3<float> const& world) const
{
    if (!Freecut::isAxisView(m_viewIndex))
        return onScreen(world);
    return {world[axis() == 0 ? 1 : 0], world[axis() == 2 ? 1 : 2]};
}

float ToolScene::depthCoordinate(UPoint3<float> const& world) const
{
    if (Freecut::isAxisView(m_viewIndex))
        return world[axis()];
    UPoint3<float> seen = world;
    m_view.getEyePointFromWCSPoint(seen);
    return seen.Z();
}

UPoint2<float> ToolScene::freeWay(UPoint2<double> const& way) const
{
    UVector3<float> const up = m_view.getViewUpDirection();
    UVector3<float> const right = up * m_view.getViewDirection();
    return freeCoordinates(UPoint3<float>() + right * float(way.X()) + up * float(way.Y()));
}

UPoint2<float> ToolScene::onScreen(UPoint3<float> world) const
{
    m_view.getEyePointFromWCSPoint(world);
    return {world.X(), world.Y()};
}
