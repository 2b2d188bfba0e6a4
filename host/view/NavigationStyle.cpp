// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/NavigationStyle.h"

#include "platform/view/AbstractMouseSelection.h"
#include "platform/view/ClickReach.h"
#include "platform/view/GLView.h"

#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

// See docs/decisions/0006-view.md.

namespace Base {

namespace {

using Vector = UVector3<double>;

constexpr double radiansPerPixel = 0.4 * M_PI / 180;
constexpr double nearerPerNotch = 0.9;
constexpr double fartherPerNotch = 1.1;
/// Eighths of a degree.
constexpr double notch = 120;

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

/// Turns about the reference point, as far as straight above and below.
void turnBy(GLCamera& camera, QPoint pixels)
{
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

}  // namespace

/// Keeps tools alive that end while one of them has an event. A tool takes its cursor away when it
/// is deleted; one that runs by then keeps its own.
struct NavigationStyle::Delivery
{
    explicit Delivery(NavigationStyle& o) : owner(o) { ++owner.m_deliveries; }
    ~Delivery()
    {
        if (--owner.m_deliveries > 0 || owner.m_ended.empty())
            return;
        QWidget& view = *owner.m_view;
        bool const hasCursor = owner.m_tool && view.testAttribute(Qt::WA_SetCursor);
        QCursor const cursor = view.cursor();
        owner.m_ended.clear();
        if (hasCursor)
            view.setCursor(cursor);
    }
    NavigationStyle& owner;
};

NavigationStyle::NavigationStyle(GLView* view) : m_view(view) {}

NavigationStyle::~NavigationStyle() = default;

void NavigationStyle::setMouseModel(std::unique_ptr<AbstractMouseSelection> tool)
{
    if (!m_tool)
        endResting();
    // What has been pressed for one tool is no press of the next one.
    forgetPresses();
    if (m_tool) {
        Delivery const busy(*this);
        m_tool->releaseMouseModel();
        m_ended.push_back(std::move(m_tool));
        m_view->unsetCursor();
    }
    m_tool = std::move(tool);
    if (m_tool)
        m_tool->grabMouseModel(m_view);
    m_view->redraw();
}

void NavigationStyle::setRestingTool(std::unique_ptr<AbstractMouseSelection> tool)
{
    m_resting = std::move(tool);
    if (m_resting)
        m_resting->grabMouseModel(m_view);
}

// What it spans is over when a tool comes.
void NavigationStyle::endResting()
{
    if (!m_resting || !m_held)
        return;
    QMouseEvent end(QEvent::MouseButtonRelease, m_press, m_view->mapToGlobal(m_press), Qt::NoButton,
                    Qt::NoButton, {});
    m_resting->mouseReleaseEvent(&end);
}

int NavigationStyle::deliver(QEvent* event)
{
    if (!receiver())
        return 0;
    if (m_view->isToolLocked())
        return deliverLocked(event);
    Delivery const busy(*this);
    AbstractMouseSelection& tool = *receiver();
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

// A locked tool sees the mouse pass and the end of a drag that began before; what it would edit
// goes to the view.
int NavigationStyle::deliverLocked(QEvent* event)
{
    Delivery const busy(*this);
    switch (event->type()) {
        case QEvent::MouseButtonPress:
            if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
                emit m_view->signalToolRefused();
            return 0;
        case QEvent::MouseMove: {
            auto* const mouse = static_cast<QMouseEvent*>(event);
            return mouse->buttons() == Qt::NoButton ? m_tool->mouseMoveEvent(mouse) : 0;
        }
        case QEvent::MouseButtonRelease: {
            auto const& mouse = *static_cast<QMouseEvent*>(event);
            QMouseEvent end(QEvent::MouseButtonRelease, mouse.localPos(), mouse.windowPos(),
                            mouse.screenPos(), Qt::NoButton, mouse.buttons(), mouse.modifiers());
            return m_tool->mouseReleaseEvent(&end);
        }
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
        {Preset::TurnByLeft, Qt::LeftButton, Qt::NoModifier, Action::Turn},
        {Preset::TurnByLeft, Qt::LeftButton, Qt::ShiftModifier, Action::Move},
        {Preset::TurnByLeft, Qt::LeftButton, Qt::AltModifier, Action::Turn},
        {Preset::TurnByLeft, Qt::RightButton, Qt::NoModifier, Action::Turn},
        {Preset::TurnByLeft, Qt::RightButton, Qt::ShiftModifier, Action::Move},
        {Preset::TurnByLeft, Qt::RightButton, Qt::ControlModifier, Action::Zoom},
        {Preset::TurnByLeft, Qt::MiddleButton, Qt::NoModifier, Action::Move},
    };
    bool const isTools = m_tool && event.button() == Qt::LeftButton && !isViewsAlone(event);
    if (isTools)
        return Action::None;
    for (Binding const& binding : bindings)
        if (binding.preset == m_preset && binding.button == event.button() &&
            binding.modifiers == event.modifiers())
            return binding.action;
    return Action::None;
}

bool NavigationStyle::isViewsAlone(QMouseEvent const& event) const
{
    return m_preset == Preset::TurnByLeft && event.button() == Qt::LeftButton &&
           event.modifiers() == Qt::AltModifier;
}

// The view has taken the drag, or it has ended in another way than by its release.
void NavigationStyle::deliverEnd(QMouseEvent const& event)
{
    if (m_isPressViews)
        return;
    QMouseEvent end(QEvent::MouseButtonRelease, event.localPos(), event.windowPos(),
                    event.screenPos(), Qt::NoButton, event.buttons(), event.modifiers());
    deliver(&end);
}

void NavigationStyle::forgetPresses()
{
    m_held = 0;
    m_putBack = nullptr;
    if (!m_isNavigating)
        m_action = Action::None;
}

void NavigationStyle::capturePress(std::function<void()> putBack)
{
    if (m_isNavigating)
        return;
    m_putBack = std::move(putBack);
    m_action = Action::None;
}

void NavigationStyle::press(QMouseEvent* event)
{
    endLostPresses(*event, int(event->buttons()) & ~int(event->button()));
    if (m_isNavigating)
        return;
    bool const isFirst = m_held == 0 && event->buttons() == event->button();
    m_held |= event->button();
    // A drag is that of the first button; another one beside it is the tool's alone.
    if (!isFirst) {
        deliver(event);
        return;
    }
    beginPress(*event);
    m_action = actionFor(*event);
    m_isPressViews = isViewsAlone(*event);
    if (!m_isPressViews && deliver(event) != 0)
        m_action = Action::None;
}

void NavigationStyle::beginPress(QMouseEvent const& event)
{
    m_press = m_last = event.pos();
    m_hasMoved = false;
    m_button = event.button();
    m_action = Action::None;
    m_putBack = nullptr;
}

void NavigationStyle::doubleClick(QMouseEvent* event)
{
    // Held from now on, so that a tool that makes use of it sees the release too.
    bool const isFirst = m_held == 0 && !m_isNavigating;
    if (isFirst) {
        m_held = event->button();
        beginPress(*event);
    }
    AbstractMouseSelection const* const tool = m_tool.get();
    if (!isViewsAlone(*event) && (deliver(event) != 0 || m_tool.get() != tool))
        return;
    if (isFirst)
        m_held = 0;
    // What makes nothing of the second click as such takes it for a press like any other.
    QMouseEvent asPress(QEvent::MouseButtonPress, event->localPos(), event->windowPos(),
                        event->screenPos(), event->button(), event->buttons(), event->modifiers());
    press(&asPress);
}

// Buttons that are up although nobody has told of their release: it went elsewhere.
void NavigationStyle::endLostPresses(QMouseEvent const& event, int down)
{
    if (m_isNavigating && (m_button & ~down))
        finish();
    if ((m_held & ~down) == 0)
        return;
    forgetPresses();
    deliverEnd(event);
}

void NavigationStyle::move(QMouseEvent* event)
{
    endLostPresses(*event, int(event->buttons()));
    bool const isPressed = (m_held & m_button) != 0;
    m_hasMoved = m_hasMoved || (isPressed && isBeyondClick(event->pos() - m_press));
    if (m_action != Action::None && isPressed && m_hasMoved && !m_isNavigating)
        begin();
    if (m_isNavigating)
        step(event->pos());
    else if (!isPressed || !m_isPressViews)
        deliver(event);
}

void NavigationStyle::release(QMouseEvent* event)
{
    int const button = event->button();
    bool const isHeld = (m_held & button) != 0;
    if (m_isNavigating) {
        if (button != m_button)
            return;
        finish();
        m_held &= ~button;
        if (isHeld)
            deliverEnd(*event);
        return;
    }
    if (!isHeld)
        return;
    m_held &= ~button;
    if (button == m_button) {
        m_action = Action::None;
        m_putBack = nullptr;
    }
    if (m_isPressViews && button == m_button)
        return;
    // A tool that ends with its release leaves no click behind.
    bool const hasTool = m_tool != nullptr;
    bool const isTaken = deliver(event) != 0 || hasTool;
    if (!isTaken && !m_hasMoved && button == m_button)
        m_view->clicked(event);
}

bool NavigationStyle::cancelDrag()
{
    if (!m_isNavigating && !(m_held & m_button))
        return false;
    bool const wasNavigating = m_isNavigating;
    if (wasNavigating)
        putCameraBack();
    std::function<void()> const putBack = std::exchange(m_putBack, nullptr);
    bool const isToolsToo = (m_held & m_button) != 0;
    Qt::MouseButtons const buttons(m_held);
    forgetPresses();
    if (!isToolsToo || m_isPressViews)
        return true;
    Delivery const busy(*this);
    auto const sendAtPress = [&](QEvent::Type type) {
        QMouseEvent event(type, m_press, m_view->mapToGlobal(m_press), Qt::NoButton, buttons, {});
        deliver(&event);
    };
    if (putBack && !m_view->isToolLocked())
        putBack();
    else if (!wasNavigating)
        sendAtPress(QEvent::MouseMove);
    sendAtPress(QEvent::MouseButtonRelease);
    return true;
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
    m_hasTurned = false;
    m_view->paintPending();
    m_begun = m_pivoted = *m_view->getCamera();
}

void NavigationStyle::finish()
{
    if (m_hasTurned) {
        m_view->paintPending();
        m_view->getCamera()->recentre();
    }
    endNavigation();
}

void NavigationStyle::endNavigation()
{
    m_isNavigating = false;
    m_hasTurned = false;
    m_action = Action::None;
    emit m_view->signalCameraChanged();
    m_view->redraw();
}

// In two steps, since tools follow a turn and a move in different ways.
void NavigationStyle::putCameraBack()
{
    GLCamera& camera = *m_view->getCamera();
    int width, height;
    camera.get_screen(width, height);
    m_view->paintPending();
    GLCamera::Projection const projection = camera.projection();
    for (GLCamera const* const before : {&m_pivoted, &m_begun}) {
        camera = *before;
        camera.set_screen(width, height);
        camera.setProjection(projection);
        m_view->paintPending();
    }
    endNavigation();
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
    GLCamera turned = camera;
    turnBy(turned, pixels);
    // Straight above the view turns no farther, and then nothing may move: tools draw at a depth
    // that is counted from the reference plane, and only a turn makes them look at it again.
    if (turned.get_direction() == camera.get_direction() &&
        turned.get_vecUp() == camera.get_vecUp())
        return;
    if (m_hasTurned) {
        turnBy(camera, pixels);
        return;
    }
    m_hasTurned = true;
    camera.set_pivot(m_view->turningPoint(m_press));
    m_pivoted = camera;
    m_view->paintPending();
    turnBy(camera, pixels);
    m_view->paintPending();
}

}  // namespace Base
