// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/view/FlawMarks.h"

#include "platform/view/OverlayLines.h"

namespace {

constexpr Base::OverlayLook plainLook{0xd83a2eff, 2.5f, true};
constexpr Base::OverlayLook chosenLook{0xff2a10ff, 4, false};

}  // namespace

FlawMarks::FlawMarks(Base::GLView& view) : m_view(&view)
{
    view.addGraphicsItem(this);
}

FlawMarks::~FlawMarks()
{
    if (!m_view)
        return;
    m_view->removeGraphicsItem(this);
    m_view->redraw();
}

void FlawMarks::setLines(Lines lines)
{
    m_lines = std::move(lines);
    if (m_view)
        m_view->redraw();
}

void FlawMarks::setChosen(Lines lines)
{
    m_chosen = std::move(lines);
    if (m_view)
        m_view->redraw();
}

void FlawMarks::paintGL()
{
    Base::drawLines(*m_view, m_lines, plainLook);
    Base::drawLines(*m_view, m_chosen, chosenLook);
}
