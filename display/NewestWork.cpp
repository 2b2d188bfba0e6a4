// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/NewestWork.h"

#include "platform/jobs/BackgroundWork.h"
#include "platform/jobs/Exceptions.h"
#include "platform/ui/FailureText.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>

namespace Freecut {

namespace {

/// Work that has run for longer is given up when other work is wanted.
constexpr qint64 mostOutdatedMs = 60;
constexpr qint64 longestRestMs = 50;

}  // namespace

NewestWork::NewestWork()
{
    m_thread.setMaxThreadCount(1);
}

NewestWork::~NewestWork()
{
    drop();
    m_thread.clear();
    m_thread.waitForDone();
}

void NewestWork::ask(Work work)
{
    unsigned long const serial = ++m_latest;
    // What has not begun is done by nobody.
    m_thread.clear();
    m_thread.start([this, serial, work = std::move(work)] { run(work, serial); });
}

void NewestWork::drop()
{
    m_done = ++m_latest;
    m_firstWanted = m_latest;
    m_failure.clear();
    m_thread.clear();
}

void NewestWork::finish()
{
    if (!isBusy())
        return;
    m_thread.waitForDone();
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
}

void NewestWork::rest()
{
    qint64 const left = std::min(m_lastTook, longestRestMs) -
                        (m_sinceLast.isValid() ? m_sinceLast.elapsed() : longestRestMs);
    if (left > 0)
        QThread::msleep(static_cast<unsigned long>(left));
}

void NewestWork::run(Work const& work, unsigned long serial)
{
    BackgroundWork::giveWay();
    rest();
    // Another one may have been asked for meanwhile.
    if (m_latest != serial)
        return;
    QElapsedTimer timer;
    timer.start();
    auto const end = [&] {
        m_lastTook = timer.elapsed();
        m_sinceLast.start();
    };
    Poll const poll = [&] {
        if (m_latest != serial && timer.elapsed() > mostOutdatedMs)
            throw Mell::AbortException("Aborting...");
    };
    std::function<void()> handOver;
    QString failure;
    try {
        handOver = work(poll);
    } catch (Mell::AbortException const&) {
        end();
        return;
    } catch (...) {
        failure =
            Base::failureText(QT_TRANSLATE_NOOP("MellCommons", "This could not be found out."));
    }
    end();
    QMetaObject::invokeMethod(
        this, [this, serial, handOver, failure] { enter(serial, handOver, failure); },
        Qt::QueuedConnection);
}

void NewestWork::enter(unsigned long serial, std::function<void()> const& handOver,
                       QString const& failure)
{
    if (serial < m_firstWanted || serial <= m_done)
        return;
    m_done = serial;
    m_failure = failure;
    if (handOver)
        handOver();
    emit ready();
}

}  // namespace Freecut
