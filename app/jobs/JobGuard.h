// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <atomic>
#include <mutex>
#include <vector>

/// Knows whether a job runs: from EventNotify's start event, from the opening of a progress
/// display, or from the making of a Hold, until the last of these has ended. What a worker may read
/// has to stay as it is meanwhile: whoever changes a document asks here first, and shows the reason
/// where it refuses. Viewing and selecting are free.
///
/// An end event without a start is harmless; several starts have one end.
class JobGuard : public QObject
{
    Q_OBJECT

public:
    /// Made on first use, which has to be on the user interface thread.
    static JobGuard* instance();

    /// thread  any; true at once, before the signal has come
    bool isBusy() const;

    /// One sentence for a tool tip or the status line, which names the job if it has a title; empty
    /// while nothing runs.
    QString reason() const;

    /// The title of a job as the user reads it; plain titles are translated in the context
    /// "JobGuard".
    static QString translatedTitle(QString const& title);

    // Called by what shows progress, on any thread, in pairs.

    void displayOpened(QString const& title);
    void displayClosed();

    /// Keeps others from starting as long as it lives: for a job that has not opened its display
    /// yet, or whose result is still to be taken over. User interface thread.
    class Hold
    {
    public:
        Hold();
        ~Hold();
        Hold(Hold const&) = delete;
        Hold& operator=(Hold const&) = delete;
    };

signals:
    /// On the user interface thread. A Hold that ends before events are handled again is not told.
    void busyChanged(bool busy);

private:
    JobGuard();
    void announce();
    void announceLater();

    std::atomic<int> m_displays = 0;
    std::atomic<bool> m_hasStarted = false;
    std::atomic<int> m_holds = 0;
    bool m_announced = false;
    mutable std::mutex m_titlesLock;
    std::vector<QString> m_titles;
};
