// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QThreadPool>

#include <atomic>
#include <functional>

namespace Freecut {

/// Work in the background of which only the newest request counts, so that what a mouse drags never
/// waits. A request that waits is dropped for the next one. One that runs is given up once it is
/// older than 60 ms and another one wants its place, and finished before that: else nothing would
/// be seen until a drag rests. Between two works the thread rests for as long as the first one took,
/// 50 ms at most, so that pictures get their share of the processor while a drag asks and asks.
///
/// thread  the user interface thread, but for the work itself
class NewestWork : public QObject
{
    Q_OBJECT

public:
    /// Leaves the work if it is out of date.
    using Poll = std::function<void()>;
    /// Runs in the background, on what it owns, and calls `poll` often. What it returns is called
    /// on the user interface thread, unless the work was dropped or something newer is done. What it
    /// throws is its failure.
    using Work = std::function<std::function<void()>(Poll const& poll)>;

    NewestWork();
    /// Gives up what runs.
    ~NewestWork() override;

    /// Asks for this in place of all that was asked for before. ready() follows unless another
    /// request comes.
    void ask(Work work);
    /// Forgets what was asked for.
    void drop();
    /// Whether the newest request is not done yet.
    bool isBusy() const { return m_latest != m_done; }
    /// Waits until it is, and has it told.
    void finish();
    /// Why the newest request that is done came to nothing, in one sentence; empty if it went well.
    QString const& failure() const { return m_failure; }

signals:
    /// A request is done; its result has been handed over, or there is a failure.
    void ready();

private:
    void run(Work const& work, unsigned long serial);
    void rest();
    void enter(unsigned long serial, std::function<void()> const& handOver, QString const& failure);

    std::atomic<unsigned long> m_latest = 0;
    /// Nothing before this one is to be handed over.
    unsigned long m_firstWanted = 0;
    unsigned long m_done = 0;
    QString m_failure;
    /// Of the last work, in milliseconds, and when it ended; the background's alone.
    qint64 m_lastTook = 0;
    QElapsedTimer m_sinceLast;
    QThreadPool m_thread;
};

}  // namespace Freecut
