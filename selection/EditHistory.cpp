// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/EditHistory.h"

#include "platform/document/Document.h"
#include "platform/ui/MainWindow.h"
#include "platform/view/AbstractMouseSelection.h"
#include "platform/view/GLView.h"
#include "platform/view/NavigationStyle.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QScopedValueRollback>

#include <utility>

namespace Freecut {

namespace {

/// More than anybody takes back one by one.
constexpr std::size_t mostSteps = 200;

QString translated(char const* text)
{
    return QCoreApplication::translate("Freecut::EditHistory", text);
}

}  // namespace

EditHistory::EditHistory(Tool tool) : m_tool(std::move(tool)) {}

ToolState EditHistory::read() const
{
    ToolState now = m_tool.read();
    // States share their teeth while these stay as they are.
    if (now.edges && m_last.edges && *now.edges == *m_last.edges)
        now.edges = m_last.edges;
    return now;
}

bool EditHistory::isBusy() const
{
    return m_isGoing || m_holds > 0 || m_tool.isDragged();
}

void EditHistory::edited(bool joinsLast)
{
    if (isBusy())
        return;
    if (QGuiApplication::mouseButtons() != Qt::NoButton)
        waitForRelease();
    else
        note(read(), joinsLast);
}

void EditHistory::takeAlong(std::shared_ptr<void const> const& beside)
{
    m_last.beside = beside;
    for (std::deque<ToolState>* const states : {&m_undo, &m_redo})
        for (ToolState& state : *states)
            state.beside = beside;
}

void EditHistory::waitForRelease()
{
    if (std::exchange(m_isWaiting, true))
        return;
    QCoreApplication::instance()->installEventFilter(this);
}

bool EditHistory::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonRelease && m_isWaiting) {
        m_isWaiting = false;
        QCoreApplication::instance()->removeEventFilter(this);
        // What the release brings about belongs to it.
        QMetaObject::invokeMethod(
            this, [this] { edited(); }, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

void EditHistory::note(ToolState now, bool joinsLast)
{
    if (isSameEdit(m_last, now)) {
        m_last = std::move(now);
        return;
    }
    m_redo.clear();
    if (!joinsLast || m_undo.empty())
        m_undo.push_back(std::move(m_last));
    if (m_undo.size() > mostSteps)
        m_undo.pop_front();
    m_last = std::move(now);
    tellButtons();
}

void EditHistory::replace(ToolState const& state)
{
    OneStep const oneStep(this);
    m_tool.write(state);
}

bool EditHistory::isInUse() const
{
    return !m_undo.empty() || !m_redo.empty();
}

QString EditHistory::whyNoUndo() const
{
    if (QString const frozen = m_tool.whyFrozen(); !frozen.isEmpty())
        return frozen;
    if (!m_undo.empty() || m_tool.isDragged())
        return {};
    return translated(QT_TRANSLATE_NOOP(
        "Freecut::EditHistory",
        "All edits of the tool have been taken back. Press Esc to end the tool, and then undo goes "
        "on with the parts."));
}

QString EditHistory::whyNoRedo() const
{
    if (QString const frozen = m_tool.whyFrozen(); !frozen.isEmpty())
        return frozen;
    if (!m_redo.empty())
        return {};
    return translated(
        QT_TRANSLATE_NOOP("Freecut::EditHistory", "No edit of the tool has been taken back."));
}

void EditHistory::undo()
{
    if (!whyNoUndo().isEmpty())
        return;
    if (m_tool.isDragged())
        m_tool.giveUpDrag();
    else
        go(m_undo, m_redo);
}

void EditHistory::redo()
{
    if (!whyNoRedo().isEmpty() || m_tool.isDragged())
        return;
    go(m_redo, m_undo);
}

void EditHistory::go(std::deque<ToolState>& from, std::deque<ToolState>& to)
{
    if (isBusy())
        return;
    // What nobody has told of is a step too.
    note(read(), false);
    bool isShown = false;
    while (!isShown && !from.empty()) {
        ToolState const wanted = std::exchange(from.back(), {});
        from.pop_back();
        ToolState const before = m_last;
        {
            QScopedValueRollback<bool> const going(m_isGoing, true);
            m_tool.write(wanted);
        }
        // A step may make no difference now: teeth that are only being tried out do not come back
        // when nobody edits teeth any more.
        m_last = read();
        isShown = !isSameEdit(before, m_last);
        if (isShown)
            to.push_back(before);
    }
    tellButtons();
}

void EditHistory::tellButtons() const
{
    if (MainWindow* const window = MainWindow::getInstance())
        emit window->signalUpdateToolbuttonState();
}

EditHistory::OneStep::OneStep(EditHistory* history, bool joinsLast)
    : m_history(history), m_joinsLast(joinsLast)
{
    if (m_history)
        ++m_history->m_holds;
}

EditHistory::OneStep::~OneStep()
{
    if (m_history && --m_history->m_holds == 0)
        m_history->edited(m_joinsLast);
}

EditHistory* runningHistory(Base::GLView const* view)
{
    Base::AbstractMouseSelection const* const tool =
        view ? view->navigationStyle()->mouseModel() : nullptr;
    return tool ? dynamic_cast<EditHistory*>(tool->history()) : nullptr;
}

void noteEdit(Base::Document const* document, bool joinsLast)
{
    if (EditHistory* const history = runningHistory(document ? document->getView() : nullptr))
        history->edited(joinsLast);
}

}  // namespace Freecut
