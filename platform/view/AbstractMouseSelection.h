// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/BaseClass.h"

#include <functional>

class QKeyEvent;
class QMouseEvent;
class QWheelEvent;

namespace Base {

class GLView;
class ToolHistory;

/// A mouse tool: it sees the events of the view that runs it before the view does. Tools are made
/// by class name through GLView::startSelection, and deleted by the view.
///
/// The result of an event is 0 if the view may use it too, and 1 if it ends with the tool. A tool
/// leaves presses and moves to the view as a rule, so that the view can be turned, moved and zoomed
/// while a tool runs: what the user does with the left button alone is never the view's. A drag
/// that the view has taken is not shown to the tool; its end arrives as a release of no button.
///
/// A tool sees a release only if it has seen the press: what began on a label, on the view cube or
/// with another tool ends there. A release that got lost, and a drag that the user has given up,
/// arrive as a release of no button too.
///
/// thread  the user interface thread
class AbstractMouseSelection : public BaseClass
{
public:
    static Type classTypeId;
    static Type getClassTypeId() { return classTypeId; }
    static void init();

    ~AbstractMouseSelection() override;
    Type getTypeId() const override;
    std::string getClassName() const override;

    /// Called when the tool has got its view: sets the cursor and what is needed.
    virtual void initialize();
    /// Called before the view lets the tool go; the view is still there.
    virtual void terminate();
    /// Takes the tool to a view, and initializes it.
    virtual void grabMouseModel(GLView* view);
    /// Ends it. The view stays known, so that the destructor can clear up.
    virtual void releaseMouseModel();

    virtual int mousePressEvent(QMouseEvent* event);
    virtual int mouseMoveEvent(QMouseEvent* event);
    virtual int mouseReleaseEvent(QMouseEvent* event);
    virtual int mouseDoubleClickedEvent(QMouseEvent* event);
    /// Keys come while the view has the focus. Here they go to what setKeyHandler() was given.
    virtual int keyPressEvent(QKeyEvent* event);
    virtual int keyReleaseEvent(QKeyEvent* event);
    virtual int wheelEvent(QWheelEvent* event);

    /// Draws with each picture, after parts and tools and before the graphics items, with the
    /// view's context current.
    virtual void draw();

    /// Selects the part under a widget position; nothing there empties the selection.
    ///
    /// keepOthers  the rest of the selection stays
    /// toggle      a selected part is taken out instead
    /// notify      tell the document's listeners
    /// onlyFront   faces seen from behind do not count
    /// alsoGhosts  parts shown as ghosts count
    virtual void selectModel(int x, int y, bool keepOthers, bool toggle, bool notify,
                             bool onlyFront, bool alsoGhosts);
    /// Takes the part under a widget position out of the selection.
    virtual void unSelectModel(int x, int y);

    GLView* getGLViewer() const { return m_view; }
    /// The edits that can be taken back while the tool runs; null for a tool that edits nothing.
    ToolHistory* history() const { return m_history; }

protected:
    /// Said within a press, or later in the same drag: the drag is the tool's, whatever the button,
    /// and does not turn or move the view.
    ///
    /// putBack  puts what is dragged back to where it was, for a user who gives the drag up by Esc;
    ///          without one the tool sees a move back to the place of the press. Called at most
    ///          once, before the release of no button, while the tool runs
    void capturePress(std::function<void()> putBack = {});
    /// Borrowed; it lives as long as the tool does.
    void setHistory(ToolHistory* history) { m_history = history; }
    /// handler  is given each key that is pressed, and says whether it has made use of it
    void setKeyHandler(std::function<bool(QKeyEvent&)> handler);

    GLView* m_view = nullptr;

private:
    ToolHistory* m_history = nullptr;
    std::function<bool(QKeyEvent&)> m_keyHandler;
};

}  // namespace Base
