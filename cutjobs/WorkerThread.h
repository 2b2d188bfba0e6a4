// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/CutWorker.h"
#include "platform/jobs/BackgroundWork.h"

#include <QDeadlineTimer>
#include <QThread>

/// The thread of a front object: an object on the user interface thread with the signal
/// signalOperate() and the slots handleResult(bool) and processEnd().
namespace WorkerThread {

/// Moves a new worker to the thread, ties it to its front object and starts the thread's event
/// loop. The worker deletes itself when the thread has finished.
template <typename Front>
void start(QThread& thread, CutWorker* worker, Front* front)
{
    worker->moveToThread(&thread);
    // On the thread that has started.
    QObject::connect(&thread, &QThread::started, &BackgroundWork::giveWay);
    QObject::connect(&thread, &QThread::finished, worker, &QObject::deleteLater);
    QObject::connect(front, &Front::signalOperate, worker, &CutWorker::doWork);
    QObject::connect(worker, &CutWorker::resultReady, front, &Front::handleResult);
    QObject::connect(worker, &CutWorker::processEnd, front, &Front::processEnd,
                     Qt::QueuedConnection);
    thread.start(QThread::InheritPriority);
}

/// Ends the thread, in the front object's destructor. A job that still runs is waited for.
inline void end(QThread& thread)
{
    thread.quit();
    thread.wait(QDeadlineTimer(QDeadlineTimer::Forever));
}

}  // namespace WorkerThread
