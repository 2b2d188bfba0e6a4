// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/RubberbandSelection.h"

#include "host/view/ViewScene.h"
#include "platform/view/ClickReach.h"
#include "platform/view/GLView.h"

#include <QMouseEvent>

namespace Base {

namespace {

constexpr unsigned bandFill = 0x2f6fb028;
constexpr unsigned bandEdge = 0x2f6fb0ff;

}  // namespace

constinit Type RubberbandSelection::classTypeId;

void RubberbandSelection::init()
{
    initSubclass(classTypeId, "Base::RubberbandSelection", "Base::AbstractMouseSelection", nullptr);
}

Type RubberbandSelection::getTypeId() const
{
    return classTypeId;
}

std::string RubberbandSelection::getClassName() const
{
    return "Base::RubberbandSelection";
}

int RubberbandSelection::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return 0;
    m_isPressed = true;
    m_press = event->pos();
    m_band = QRect();
    return 1;
}

int RubberbandSelection::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_isPressed)
        return 0;
    if (!isBeyondClick(event->pos() - m_press) && m_band.isNull())
        return 1;
    m_band = QRect(m_press, event->pos()).normalized();
    m_view->redraw();
    return 1;
}

int RubberbandSelection::mouseReleaseEvent(QMouseEvent* event)
{
    // No button: the drag was taken back.
    bool const isTakenBack = event->button() == Qt::NoButton;
    if (!m_isPressed || (event->button() != Qt::LeftButton && !isTakenBack))
        return 0;
    m_isPressed = false;
    QRect const band = m_band;
    m_band = QRect();
    if (isTakenBack)
        m_view->redraw();
    else if (band.isNull())
        clicked(event);
    else
        bandSpanned(band, event);
    m_view->redraw();
    return 1;
}

void RubberbandSelection::draw()
{
    if (m_band.isNull())
        return;
    float const left = float(m_band.left()), right = float(m_band.right());
    float const top = float(m_band.top()), bottom = float(m_band.bottom());
    QMatrix4x4 toClip;
    toClip.ortho(0, float(m_view->width()), float(m_view->height()), 0, -1, 1);
    DrawRun const runs[] = {{GL_TRIANGLE_FAN, 0, 4, bandFill}, {GL_LINE_LOOP, 0, 4, bandEdge}};
    m_view->scene().drawOnce(
        {{left, top, 1}, {right, top, 1}, {right, bottom, 1}, {left, bottom, 1}}, runs, toClip);
}

void RubberbandSelection::bandSpanned(QRect const&, QMouseEvent*) {}

void RubberbandSelection::clicked(QMouseEvent*) {}

}  // namespace Base
