// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QKeySequence>
#include <QObject>

#include <functional>
#include <vector>

namespace Base {
class Command;
class CommandManager;
}  // namespace Base

/// Lets commands through while they make sense, and keeps their actions in line with that: enabled
/// or not, with the reason in the tool tip. While a job runs, nothing that changes a document
/// passes, also in the event loop of a command that waits for its job.
class CommandGate : public QObject
{
    Q_OBJECT

public:
    /// The manager outlives the gate.
    explicit CommandGate(Base::CommandManager& manager, QObject* parent = nullptr);
    ~CommandGate() override;

    /// Brings all actions in line, now or when events are handled next.
    void refresh();
    void refreshLater();

    /// Tells the reason if the keys are those of a command that cannot be used now. False if there
    /// is no such command.
    bool explain(QKeySequence const& keys);

signals:
    /// A command was not let through; one sentence for the user.
    void refused(QString const& reason);

private:
    void pass(Base::Command& command, std::function<void()> const& run);

    Base::CommandManager& m_manager;
    bool m_isRefreshPending = false;
    /// The event loops in which commands of modules run, the innermost last.
    std::vector<int> m_loopLevels;
};
