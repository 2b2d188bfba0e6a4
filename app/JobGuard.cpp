// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/JobGuard.h"

#include "platform/jobs/EventNotify.h"

#include <QCoreApplication>

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
    QString const title =
        QCoreApplication::translate("StatusBarMessage", m_titles.back().toUtf8().constData());
    return QCoreApplication::translate("JobGuard", "Wait until \"%1\" has finished, or cancel it.")
        .arg(title);
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
