// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/LogRecorder.h"

#include "platform/jobs/ConsoleSingleton.h"

#include <QTime>

#include <mutex>
#include <utility>

/// Where lines wait for the user interface thread. Many lines make one event.
struct LogRecorder::Inbox
{
    std::mutex guard;
    QStringList lines;
    LogRecorder* owner;
};

LogRecorder::LogRecorder() : m_inbox(std::make_shared<Inbox>())
{
    m_inbox->owner = this;
    Base::ConsoleSingleton::Instance().setListener([inbox = m_inbox](std::string const& text) {
        QString const time = QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz"));
        std::lock_guard const lock(inbox->guard);
        bool const isFirst = inbox->lines.isEmpty();
        inbox->lines << time + QLatin1Char(' ') + QString::fromStdString(text);
        if (inbox->lines.size() > capacity)
            inbox->lines.removeFirst();
        if (isFirst && inbox->owner)
            QMetaObject::invokeMethod(inbox->owner, &LogRecorder::fetch, Qt::QueuedConnection);
    });
}

LogRecorder::~LogRecorder()
{
    Base::ConsoleSingleton::Instance().setListener({});
    std::lock_guard const lock(m_inbox->guard);
    m_inbox->owner = nullptr;
}

void LogRecorder::fetch()
{
    QStringList lines;
    {
        std::lock_guard const lock(m_inbox->guard);
        lines = std::exchange(m_inbox->lines, {});
    }
    m_lines += lines;
    if (m_lines.size() > capacity)
        m_lines = m_lines.mid(m_lines.size() - capacity);
    emit added(lines);
}
