// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/DrawnPoint.h"

#include "platform/view/GLView.h"
#include "selection/ContourRules.h"
#include "tools/PolygonGraphicObject.h"

#include <QMouseEvent>

#include <algorithm>
#include <utility>

namespace Freecut {

namespace {

RunningEdge::Spot spotOfNew(PolygonGraphicObject const* polygon, UPoint3<float> const& point)
{
    if (!polygon)
        return {};
    PolygonProperty const& record = polygon->getProperty();
    int const index = insertionIndex(record.getKeyPoints(), point, record.getExtrudeVector());
    return {polygon->getPoints(), std::size_t(std::max(index, 0)), true};
}

RunningEdge::Spot spotOf(PolygonGraphicObject const& polygon, std::size_t vertex)
{
    RunningEdge::Spot spot{polygon.getPoints(), vertex, false};
    spot.others.erase(spot.others.begin() + std::ptrdiff_t(vertex));
    return spot;
}

}  // namespace

DrawnPoint::DrawnPoint(std::function<UBox3<float>()> boxOfParts)
    : m_boxOfParts(std::move(boxOfParts))
{}

DrawnPoint::~DrawnPoint()
{
    m_edges.hide();
    m_edges.remove();
    m_sections.remove();
}

UPoint3<float> DrawnPoint::heldNew(Base::GLView const& view, PolygonGraphicObject const* polygon,
                                   UPoint3<float> const& point, QMouseEvent const& event) const
{
    return RunningEdge::held(view, point, event.pos(), spotOfNew(polygon, point), event.modifiers(),
                             m_sections.section());
}

UPoint3<float> DrawnPoint::heldVertex(Base::GLView const& view, PolygonGraphicObject const& polygon,
                                      std::size_t vertex, UPoint3<float> const& point,
                                      QMouseEvent const& event) const
{
    return RunningEdge::held(view, point, event.pos(), spotOf(polygon, vertex), event.modifiers(),
                             m_sections.section());
}

void DrawnPoint::showNew(Base::GLView& view, PolygonGraphicObject const& polygon,
                         UPoint3<float> const& under, QMouseEvent const& event)
{
    m_edges.show(view, heldNew(view, &polygon, under, event), spotOfNew(&polygon, under),
                 RunningEdge::isHolding(event.modifiers()));
}

void DrawnPoint::showVertex(Base::GLView& view, PolygonGraphicObject const& polygon,
                            std::size_t vertex)
{
    m_edges.show(view, polygon.getPoints()[vertex], spotOf(polygon, vertex), false);
}

void DrawnPoint::showSections(Base::GLView& view, PolygonGraphicObject const* polygon)
{
    UVector3<float> const sight = view.getViewDirection();
    if (!polygon) {
        UBox3<float> const box = m_boxOfParts();
        m_sections.show(view, {{box.min + (box.max - box.min) * 0.5f, sight}});
        return;
    }
    VolumeProperty const& record = polygon->getProperty();
    UPoint3<float> front = view.getViewRefPoint();
    view.getEyePointFromWCSPoint(front);
    front.Z() = record.getSketchDepth();
    view.getWCSPointFromEyePoint(front);
    std::vector<SectionPlane> planes{{front - record.getExtrudeVector() * 0.5f, sight}};
    if (record.getCutTillEnabled())
        planes.push_back({front - record.getExtrudeVector(), sight});
    m_sections.show(view, planes);
}

}  // namespace Freecut
