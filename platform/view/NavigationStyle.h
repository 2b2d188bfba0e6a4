// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/GLCamera.h"

#include <QPoint>

#include <functional>
#include <memory>
#include <vector>

class QEvent;
class QKeyEvent;
class QMouseEvent;
class QWheelEvent;

namespace Base {

class AbstractMouseSelection;
class GLView;

/// Takes the events of a view to its mouse tool and turns, moves and zooms the view with what the
/// tool leaves. A drag becomes the view's once it is longer than a click; until then the tool sees
/// all of it. While a tool runs the left button is the tool's, but with Alt where the left button
/// turns. A release goes where its press went; a release whose press was seen by nobody here goes
/// nowhere. While no tool runs a resting tool sees the events, if the view has one.
///
/// The view turns about the point under the mouse: sideways about the world's z axis, up and down
/// about the screen's horizontal, as far as straight above and below. The wheel zooms to the mouse.
///
/// thread  the user interface thread
class NavigationStyle
{
public:
    /// Which buttons turn and move the view; in all of them the wheel zooms.
    enum class Preset
    {
        /// Right turns; middle, or right with shift, moves.
        TurnByRight,
        /// Middle turns; middle with shift moves; middle with control zooms.
        TurnByMiddle,
        /// Middle turns; right moves; right with control zooms.
        MoveByRight,
        /// For touchpads: left turns and left with shift moves while no tool runs; left with Alt
        /// turns and no tool sees it; right and middle as in the first.
        TurnByLeft
    };

    explicit NavigationStyle(GLView* view);
    ~NavigationStyle();

    Preset preset() const { return m_preset; }
    void setPreset(Preset preset) { m_preset = preset; }

    /// The running tool, or null.
    AbstractMouseSelection* mouseModel() const { return m_tool.get(); }
    /// Ends the running tool, deletes it, and takes another one to the view; null for none. A tool
    /// that is busy with an event is deleted when the event is over, and takes no cursor of the
    /// next one along.
    void setMouseModel(std::unique_ptr<AbstractMouseSelection> tool);
    /// What sees the events while no tool runs. It is no tool to anybody who asks for one. A click
    /// that it makes nothing of, by returning 0, is the view's.
    void setRestingTool(std::unique_ptr<AbstractMouseSelection> tool);
    /// The running tool, or else the resting one; null without both.
    AbstractMouseSelection* receiver() const { return m_tool ? m_tool.get() : m_resting.get(); }

    // Events of the view, in its widget coordinates.

    void press(QMouseEvent* event);
    void move(QMouseEvent* event);
    void release(QMouseEvent* event);
    void doubleClick(QMouseEvent* event);
    void wheel(QWheelEvent* event);
    /// False if nobody has made use of the key.
    bool key(QKeyEvent* event);

    /// Ends what the mouse is dragging, and puts the tool's object or the camera back to where it
    /// was at the press. What the mouse does until its next press is no drag any more. False if
    /// nothing is dragged.
    bool cancelDrag();
    /// What AbstractMouseSelection::capturePress does.
    void capturePress(std::function<void()> putBack);

    /// The view is being turned, moved or zoomed by a drag.
    bool isNavigating() const { return m_isNavigating; }

private:
    enum class Action
    {
        None,
        Turn,
        Move,
        Zoom
    };
    struct Delivery;

    int deliver(QEvent* event);
    void deliverEnd(QMouseEvent const& event);
    void endResting();
    bool isViewsAlone(QMouseEvent const& event) const;
    void forgetPresses();
    int deliverLocked(QEvent* event);
    void beginPress(QMouseEvent const& event);
    void endLostPresses(QMouseEvent const& event, int down);
    void endNavigation();
    void putCameraBack();
    Action actionFor(QMouseEvent const& event) const;
    void begin();
    void step(QPoint position);
    void finish();
    void turn(QPoint pixels);

    GLView* m_view;
    Preset m_preset = Preset::TurnByRight;
    std::unique_ptr<AbstractMouseSelection> m_tool;
    std::unique_ptr<AbstractMouseSelection> m_resting;
    std::vector<std::unique_ptr<AbstractMouseSelection>> m_ended;
    int m_deliveries = 0;

    Action m_action = Action::None;
    int m_button = 0;
    QPoint m_press;
    QPoint m_last;
    bool m_isNavigating = false;
    bool m_hasMoved = false;
    bool m_hasTurned = false;
    /// No tool has seen the press, and none sees what follows from it.
    bool m_isPressViews = false;
    /// The buttons whose press has been seen here, and not their release.
    int m_held = 0;
    std::function<void()> m_putBack;
    /// At the press of a drag of the view, and with the point about which it turns.
    GLCamera m_begun;
    GLCamera m_pivoted;
};

}  // namespace Base
