// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/NavigationStyle.h"

#include "platform/view/AbstractMouseSelection.h"
#include "platform/view/GLView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace Base {

namespace {

using Vector = UVector3<double>;

/// A drag is longer than a click by more than this, in pixels of either direction.
constexpr int clickReach = 3;
constexpr double radiansPerPixel = 0.4 * M_PI / 180;
constexpr double nearerPerNotch = 0.9;
constexpr double fartherPerNotch = 1.1;
/// Eighths of a degree.
constexpr double notch = 120;

bool isBeyondClick(QPoint offset)
{
    return std::abs(offset.x()) > clickReach || std::abs(offset.y()) > clickReach;
}

double factorOf(double notches)
{
    return std::pow(notches > 0 ? nearerPerNotch : fartherPerNotch, std::abs(notches));
}

/// Zooms so that what lies under a widget position in the reference plane stays there.
void zoomAt(GLCamera& camera, QPointF position, double factor)
{
    UPoint2<float> const place(float(position.x()), float(position.y()));
    UPoint2<float> before = place, after = place;
    camera.mouseposToEyecs(before);
    camera.zoom(factor);
    camera.mouseposToEyecs(after);
    camera.pan(double(before.X()) - after.X(), double(before.Y()) - after.Y());
}

}  // namespace

/// Keeps tools alive that end while one of them has an event.
struct NavigationStyle::Delivery
{
    explicit Delivery(NavigationStyle& o) : owner(o) { ++owner.m_deliveries; }
    ~Delivery()
    {
        if (--owner.m_deliveries == 0)
            owner.m_ended.clear();
    }
    NavigationStyle& owner;
};

NavigationStyle::NavigationStyle(GLView* view) : m_view(view) {}

NavigationStyle::~NavigationStyle() = default;

void NavigationStyle::setMouseModel(std::unique_ptr<AbstractMouseSelection> tool)
{
    if (m_tool) {
        Delivery const busy(*this);
        m_tool->releaseMouseModel();
        m_ended.push_back(std::move(m_tool));
    }
    m_tool = std::move(tool);
    if (m_tool)
        m_tool->grabMouseModel(m_view);
    m_view->redraw();
}

int NavigationStyle::deliver(QEvent* event)
{
    if (!m_tool)
        return 0;
    Delivery const busy(*this);
    AbstractMouseSelection& tool = *m_tool;
    switch (event->type()) {
        case QEvent::MouseButtonPress:
            return tool.mousePressEvent(static_cast<QMouseEvent*>(event));
        case QEvent::MouseMove:
            return tool.mouseMoveEvent(static_cast<QMouseEvent*>(event));
        case QEvent::MouseButtonRelease:
            return tool.mouseReleaseEvent(static_cast<QMouseEvent*>(event));
        case QEvent::MouseButtonDblClick:
            return tool.mouseDoubleClickedEvent(static_cast<QMouseEvent*>(event));
        case QEvent::KeyPress:
            return tool.keyPressEvent(static_cast<QKeyEvent*>(event));
        case QEvent::KeyRelease:
            return tool.keyReleaseEvent(static_cast<QKeyEvent*>(event));
        case QEvent::Wheel:
            return tool.wheelEvent(static_cast<QWheelEvent*>(event));
        default:
            return 0;
    }
}

NavigationStyle::Action NavigationStyle::actionFor(QMouseEvent const& event) const
{
    struct Binding
    {
        Preset preset;
        Qt::MouseButton button;
        Qt::KeyboardModifiers modifiers;
        Action action;
    };
    static Binding const bindings[] = {
        {Preset::TurnByRight, Qt::RightButton, Qt::NoModifier, Action::Turn},
        {Preset::TurnByRight, Qt::RightButton, Qt::ShiftModifier, Action::Move},
        {Preset::TurnByRight, Qt::RightButton, Qt::ControlModifier, Action::Zoom},
        {Preset::TurnByRight, Qt::MiddleButton, Qt::NoModifier, Action::Move},
        {Preset::TurnByMiddle, Qt::MiddleButton, Qt::NoModifier, Action::Turn},
        {Preset::TurnByMiddle, Qt::MiddleButton, Qt::ShiftModifier, Action::Move},
        {Preset::TurnByMiddle, Qt::MiddleButton, Qt::ControlModifier, Action::Zoom},
        {Preset::MoveByRight, Qt::MiddleButton, Qt::NoModifier, Action::Turn},
        {Preset::MoveByRight, Qt::RightButton, Qt::NoModifier, Action::Move},
        {Preset::MoveByRight, Qt::RightButton, Qt::ControlModifier, Action::Zoom},
    };
    for (Binding const& binding : bindings)
        if (binding.preset == m_preset && binding.button == event.button() &&
            binding.modifiers == event.modifiers())
            return binding.action;
    return Action::None;
}

void NavigationStyle::press(QMouseEvent* event)
{
    if (m_isNavigating)
        return;
    // A drag is that of the first button; another one beside it is the tool's alone.
    if (event->buttons() != event->button()) {
        deliver(event);
        return;
    }
    m_press = m_last = event->pos();
    m_hasMoved = false;
    m_button = event->button();
    m_action = deliver(event) == 0 ? actionFor(*event) : Action::None;
}

void NavigationStyle::doubleClick(QMouseEvent* event)
{
    if (deliver(event) != 0)
        return;
    // What makes nothing of the second click as such takes it for a press like any other.
    QMouseEvent asPress(QEvent::MouseButtonPress, event->localPos(), event->windowPos(),
                        event->screenPos(), event->button(), event->buttons(), event->modifiers());
    press(&asPress);
}

void NavigationStyle::move(QMouseEvent* event)
{
    bool const isPressed = (int(event->buttons()) & m_button) != 0;
    m_hasMoved = m_hasMoved || (isPressed && isBeyondClick(event->pos() - m_press));
    // The release went elsewhere.
    if (m_isNavigating && !isPressed)
        finish();
    if (m_action != Action::None && isPressed && m_hasMoved && !m_isNavigating)
        begin();
    if (m_isNavigating)
        step(event->pos());
    else
        deliver(event);
}

void NavigationStyle::release(QMouseEvent* event)
{
    if (m_isNavigating) {
        if (int(event->button()) != m_button)
            return;
        finish();
        QMouseEvent end(QEvent::MouseButtonRelease, event->localPos(), event->windowPos(),
                        event->screenPos(), Qt::NoButton, event->buttons(), event->modifiers());
        deliver(&end);
        return;
    }
    m_action = Action::None;
    if (m_tool)
        deliver(event);
    else if (!m_hasMoved && int(event->button()) == m_button)
        m_view->clicked(event);
}

void NavigationStyle::wheel(QWheelEvent* event)
{
    double const notches = event->angleDelta().y() / notch;
    if (deliver(event) != 0 || notches == 0)
        return;
    m_view->paintPending();
    zoomAt(*m_view->getCamera(), event->position(), factorOf(notches));
    emit m_view->signalCameraChanged();
    m_view->redraw();
}

bool NavigationStyle::key(QKeyEvent* event)
{
    return deliver(event) != 0;
}

void NavigationStyle::begin()
{
    m_isNavigating = true;
    m_view->paintPending();
    if (m_action != Action::Turn)
        return;
    m_view->getCamera()->set_pivot(m_view->turningPoint(m_press));
    m_view->paintPending();
}

void NavigationStyle::finish()
{
    if (m_action == Action::Turn) {
        m_view->paintPending();
        m_view->getCamera()->recentre();
    }
    m_isNavigating = false;
    m_action = Action::None;
    emit m_view->signalCameraChanged();
    m_view->redraw();
}

void NavigationStyle::step(QPoint position)
{
    QPoint const pixels = position - m_last;
    m_last = position;
    if (pixels.isNull())
        return;
    GLCamera& camera = *m_view->getCamera();
    if (m_action == Action::Turn)
        turn(pixels);
    if (m_action == Action::Move) {
        double viewWidth, viewHeight;
        int width, height;
        camera.get_view_rect(viewWidth, viewHeight);
        camera.get_screen(width, height);
        camera.pan(-pixels.x() * viewWidth / width, pixels.y() * viewHeight / height);
    }
    if (m_action == Action::Zoom)
        zoomAt(camera, m_press, std::pow(1.01, pixels.y()));
    emit m_view->signalCameraChanged();
    m_view->redraw();
}

void NavigationStyle::turn(QPoint pixels)
{
    GLCamera& camera = *m_view->getCamera();
    UVector3<float> const up = camera.get_vecUp();
    // Upside down, what is dragged to the right still goes to the right.
    double const sense = up.Z() < -1e-6f ? 1 : -1;
    camera.turn({0, 0, 1}, sense * pixels.x() * radiansPerPixel);
    UVector3<float> const direction = camera.get_direction();
    UVector3<float> const across = camera.get_vecUp() * direction;
    double rise = pixels.y() * radiansPerPixel;
    if (up.Z() >= -1e-6f) {
        double const height = std::asin(std::clamp(double(direction.Z()), -1.0, 1.0));
        rise = std::clamp(rise, -M_PI / 2 - height, M_PI / 2 - height);
    }
    camera.turn({across.X(), across.Y(), across.Z()}, -rise);
}

}  // namespace Base
