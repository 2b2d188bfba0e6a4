// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QStringList>

#include <memory>

/// Takes the lines of the log console from any thread, with the time at which they came, and hands
/// them on to the user interface thread. The last ones are kept for those who come later.
///
/// thread  the user interface thread
class LogRecorder : public QObject
{
    Q_OBJECT

public:
    static constexpr int capacity = 10000;

    /// Becomes the console's listener.
    LogRecorder();
    /// Leaves the console without one.
    ~LogRecorder() override;

    /// The lines so far, each "hh:mm:ss.zzz text"; at most `capacity`, the oldest go first.
    QStringList lines() const { return m_lines; }

signals:
    void added(QStringList const& lines);

private:
    struct Inbox;

    void fetch();

    std::shared_ptr<Inbox> m_inbox;
    QStringList m_lines;
};
