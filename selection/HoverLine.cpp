// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/HoverLine.h"

#include "display/RubberLine.h"
#include "platform/geometry/MellMath.h"
#include "platform/view/GLView.h"

namespace Freecut {

namespace {

constexpr float reach = 6;

UPoint3<float> onWidget(Base::GLView const& view, UPoint3<float> const& point)
{
    int x, y;
    view.getWidgetcoordFromWCS(point, x, y);
    return {float(x), float(y), 0};
}

}  // namespace

HoverLine::HoverLine() = default;

HoverLine::~HoverLine()
{
    remove();
}

std::optional<int> HoverLine::edgeAt(Base::GLView const& view, QPoint mouse,
                                     std::vector<UPoint3<float>> const& outline)
{
    if (outline.size() < 2)
        return {};
    UPoint3<float> const place(float(mouse.x()), float(mouse.y()), 0);
    for (std::size_t i = 0; i < outline.size(); ++i) {
        UPoint3<float> const a = onWidget(view, outline[i]);
        UPoint3<float> const b = onWidget(view, outline[(i + 1) % outline.size()]);
        if (MellMath<float>::DisPt2Segment(place, a, b) < reach)
            return int(i);
    }
    return {};
}

void HoverLine::show(Base::GLView& view, UPoint3<float> const& from, UPoint3<float> const& to)
{
    if (!m_line) {
        m_view = &view;
        m_line = std::make_unique<RubberLine>(&view);
        m_line->setColor(0, 255, 0, 255);
        view.addGraphicsItem(m_line.get());
    }
    m_line->setWorking(true);
    m_line->setParameter({from, to});
    m_line->updateVBO();
    m_view->redraw();
}

void HoverLine::hide()
{
    if (!isShown())
        return;
    m_line->setWorking(false);
    m_view->redraw();
}

bool HoverLine::isShown() const
{
    return m_line && m_line->isWorking();
}

void HoverLine::remove()
{
    if (m_line)
        m_view->removeGraphicsItem(m_line.get());
    m_line.reset();
}

}  // namespace Freecut
