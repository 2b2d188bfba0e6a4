// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/jobs/JobGuard.h"

#include <QObject>

#include <functional>
#include <memory>

class QThread;

/// How a job ended.
struct JobOutcome
{
    bool isCancelled = false;
    /// One sentence for the user; empty if it went well or was cancelled.
    QString problem;

    bool isDone() const { return !isCancelled && problem.isEmpty(); }
};

/// Runs one job at a time on a thread of its own, with the progress display open and its cancel
/// button offered. From start() until the result has been taken over the application counts as
/// busy.
///
/// thread  the user interface thread, but for the work
class FileJob : public QObject
{
    Q_OBJECT

public:
    using Progress = std::function<void(int)>;
    /// Reports percentages; a report throws when the user has pressed cancel.
    using Work = std::function<void(Progress const&)>;
    using TakeOver = std::function<void(JobOutcome const&)>;

    explicit FileJob(QObject* parent = nullptr);
    /// Waits for the work, whose result is dropped.
    ~FileJob() override;

    /// title     what the display shows: plain English, translated in the context "JobGuard"
    /// work      called on the job's thread
    /// takeOver  called later on the user interface thread
    ///
    /// No job runs.
    void start(char const* title, Work work, TakeOver takeOver);
    bool isRunning() const { return m_thread != nullptr; }

signals:
    /// After the result has been taken over.
    void finished();

private:
    void end(TakeOver const& takeOver);

    std::unique_ptr<QThread> m_thread;
    std::unique_ptr<JobGuard::Hold> m_hold;
    std::shared_ptr<JobOutcome> m_outcome;
};
