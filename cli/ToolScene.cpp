// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ToolScene.h"

#include "display/RegisterViewProviders.h"
#include "display/VolumeViewProvider.h"
#include "platform/document/MeshDocument.h"
#include "tools/VolumeOutline.h"
#include "tools/VolumeProperty.h"

ToolScene::ToolScene(Mesh::Document& document, int viewIndex)
    : m_document(document), m_viewIndex(viewIndex)
{
    Freecut::registerViewProviders();
    m_view.setDocument(&document);
    m_view.OnViewType(viewIndex);
}

ToolScene::~ToolScene()
{
    m_view.setDocument(nullptr);
}

int ToolScene::axis() const
{
    constexpr int axes[] = {1, 2, 0};
    return axes[m_viewIndex / 2];
}

void ToolScene::place(Freecut::VolumeGraphicObject& tool, std::vector<UPoint2<float>> const& points)
{
    Freecut::VolumeProperty& record = tool.getVolumeProperty();
    record.updateDepth();
    record.rememberView();
    for (UPoint2<float> const& point : points)
        record.getKeyPoints().push_back(pointOfTool(point, record.getSketchDepth()));
    m_document.addObject(&tool, "tool", false);
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
    return {world[axis() == 0 ? 1 : 0], world[axis() == 2 ? 1 : 2]};
}

UPoint2<float> ToolScene::onScreen(UPoint3<float> world) const
{
    m_view.getEyePointFromWCSPoint(world);
    return {world.X(), world.Y()};
}
