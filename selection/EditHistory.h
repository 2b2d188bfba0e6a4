// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/ToolHistory.h"
#include "selection/ToolState.h"

#include <QObject>
#include <QPointer>

#include <deque>
#include <functional>

namespace Base {
class Document;
class GLView;
}  // namespace Base

namespace Freecut {

/// Undo and redo of a mouse tool's edits, by the states between them. Whoever edits the tool, by
/// mouse, keys, fields or commands, says so afterwards by edited(), as finishEdit() does; what has
/// made no difference is no step.
///
/// All that happens while a mouse button is held is one step, whether a handle, a slider or the
/// arrow of a field is dragged or held.
///
/// See docs/decisions/0012-edits-of-a-running-tool.md.
class EditHistory : public QObject, public Base::ToolHistory
{
public:
    /// What a tool has to do for its history.
    struct Tool
    {
        std::function<ToolState()> read;
        /// Makes the tool what it was, takes it away or makes it anew, and shows it.
        std::function<void(ToolState const&)> write;
        /// Whether a drag runs that may still be given up.
        std::function<bool()> isDragged;
        /// Gives it up.
        std::function<void()> giveUpDrag;
        /// Why nothing can be edited now, in a translated sentence; empty if it can.
        std::function<QString()> whyFrozen;
    };
    explicit EditHistory(Tool tool);

    /// joinsLast  the edit goes on with what the last step began
    void edited(bool joinsLast = false);

    /// What was edited beside the tool has been there all along: it is no step, and none takes it
    /// back.
    void takeAlong(std::shared_ptr<void const> const& beside);
    /// The tool as it is.
    ToolState state() const { return read(); }
    /// Makes it another one, which is one edit.
    void replace(ToolState const& state);

    bool isInUse() const override;
    QString whyNoUndo() const override;
    QString whyNoRedo() const override;
    void undo() override;
    void redo() override;

    /// As long as one lives all edits are one step.
    class OneStep
    {
    public:
        /// history  null for none
        explicit OneStep(EditHistory* history, bool joinsLast = false);
        ~OneStep();
        OneStep(OneStep const&) = delete;
        OneStep& operator=(OneStep const&) = delete;

    private:
        QPointer<EditHistory> m_history;
        bool m_joinsLast;
    };

protected:
    /// Waits for the release of the mouse.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isBusy() const;
    void waitForRelease();
    void note(ToolState now, bool joinsLast);
    void go(std::deque<ToolState>& from, std::deque<ToolState>& to);
    ToolState read() const;
    void tellButtons() const;

    Tool m_tool;
    /// As it was when it was last looked at.
    ToolState m_last;
    /// The next one last.
    std::deque<ToolState> m_undo;
    std::deque<ToolState> m_redo;
    int m_holds = 0;
    bool m_isGoing = false;
    bool m_isWaiting = false;
};

/// The history of the tool that runs in a view; null for none.
EditHistory* runningHistory(Base::GLView const* view);
/// Tells it that the tool of a document has been edited. Without one it does nothing.
void noteEdit(Base::Document const* document, bool joinsLast = false);

}  // namespace Freecut
