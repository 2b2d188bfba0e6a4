// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/PickMarkers.h"

#include "display/RubberRect.h"
#include "platform/view/GLView.h"

namespace Freecut {

PickMarkers::PickMarkers() = default;

PickMarkers::~PickMarkers()
{
    clear();
}

void PickMarkers::add(Base::GLView& view, UPoint3<float> const& point)
{
    m_view = &view;
    auto marker = std::make_unique<RubberRect>();
    marker->setColor(52, 52, 52, 204);
    marker->setViewer(&view);
    view.addGraphicsItem(marker.get());
    marker->setParameter(point);
    marker->setWorking(true);
    m_markers.push_back(std::move(marker));
    view.redraw();
}

void PickMarkers::clear()
{
    for (auto const& marker : m_markers)
        m_view->removeGraphicsItem(marker.get());
    m_markers.clear();
}

std::vector<UPoint3<float>> PickMarkers::points() const
{
    std::vector<UPoint3<float>> points;
    for (auto const& marker : m_markers)
        points.push_back(marker->getParameter());
    return points;
}

}  // namespace Freecut
