// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/jobs/JobGuard.h"

#include <QObject>
#include <QThreadPool>

#include <atomic>
#include <functional>
#include <memory>

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
/// busy, so that parts stay as they are.
///
/// thread  the user interface thread, but for the work
class WindowJob : public QObject
{
    Q_OBJECT

public:
    using Progress = std::function<void(int)>;
    /// Reports percentages; a report throws when the user has pressed cancel. Whatever the work
    /// throws ends it alone.
    using Work = std::function<void(Progress const&)>;
    using TakeOver = std::function<void(JobOutcome const&)>;

    explicit WindowJob(QObject* parent = nullptr);
    /// Waits for the work, whose result is dropped.
    ~WindowJob() override;

    /// title     what the display shows: plain English, translated in the context "JobGuard"
    /// work      called on the job's thread, destroyed on this one
    /// takeOver  called later on the user interface thread
    ///
    /// No job runs.
    void start(char const* title, Work work, TakeOver takeOver);
    bool isRunning() const { return m_work != nullptr; }
    /// The next report throws as if the user had pressed cancel.
    void stop() { m_isStopping = true; }

signals:
    /// After the result has been taken over, when the application is no longer busy with it.
    void finished();

private:
    JobOutcome run(char const* title) const;
    void end(JobOutcome const& outcome);

    std::unique_ptr<Work const> m_work;
    TakeOver m_takeOver;
    std::atomic<bool> m_isStopping = false;
    std::unique_ptr<JobGuard::Hold> m_hold;
    QThreadPool m_thread;
};
