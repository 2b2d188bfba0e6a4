// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/jobs/JobGuard.h"

#include "platform/jobs/EventNotify.h"

#include <QCoreApplication>

namespace {

// The titles that jobs of modules give.
[[maybe_unused]] char const* const moduleTitles[] = {
    QT_TRANSLATE_NOOP("JobGuard", "Section Cut"),
    QT_TRANSLATE_NOOP("JobGuard", "Polygon Cut"),
};

}  // namespace

JobGuard* JobGuard::instance()
{
    static JobGuard guard;
    return &guard;
}

JobGuard::JobGuard()
{
    EventNotify* const notify = EventNotify::instance();
    connect(notify, &EventNotify::startEvent, this, [this] {
        m_hasStarted = true;
        announce();
    });
    connect(notify, &EventNotify::endEvent, this, [this] {
        m_hasStarted = false;
        announce();
    });
}

bool JobGuard::isBusy() const
{
    return m_displays > 0 || m_hasStarted || m_holds > 0;
}

QString JobGuard::reason() const
{
    if (!isBusy())
        return {};
    std::lock_guard const lock(m_titlesLock);
    if (m_titles.empty())
        return QCoreApplication::translate("JobGuard", "Wait until the running job has finished.");
    return QCoreApplication::translate("JobGuard", "Wait until \"%1\" has finished, or cancel it.")
        .arg(translatedTitle(m_titles.back()));
}

QString JobGuard::translatedTitle(QString const& title)
{
    QByteArray const text = title.toUtf8();
    QString const translated = QCoreApplication::translate("JobGuard", text.constData());
    // Modules have theirs translated for the status bar.
    return translated != title ? translated
                               : QCoreApplication::translate("StatusBarMessage", text.constData());
}

void JobGuard::displayOpened(QString const& title)
{
    {
        std::lock_guard const lock(m_titlesLock);
        m_titles.push_back(title);
    }
    ++m_displays;
    announceLater();
}

void JobGuard::displayClosed()
{
    {
        std::lock_guard const lock(m_titlesLock);
        if (!m_titles.empty())
            m_titles.pop_back();
    }
    --m_displays;
    announceLater();
}

void JobGuard::announce()
{
    bool const busy = isBusy();
    if (busy == m_announced)
        return;
    m_announced = busy;
    emit busyChanged(busy);
}

void JobGuard::announceLater()
{
    QMetaObject::invokeMethod(
        this, [this] { announce(); }, Qt::QueuedConnection);
}

JobGuard::Hold::Hold()
{
    ++instance()->m_holds;
    instance()->announceLater();
}

JobGuard::Hold::~Hold()
{
    --instance()->m_holds;
    instance()->announceLater();
}
