// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>

/// The application of the test programs.
///
/// Qt and the task library come without the thread sanitizer's instrumentation, so it cannot see
/// how they hand work from one thread to another. In a build with that sanitizer this application
/// tells it of the ways in which Qt orders threads here:
///
/// - what a thread did before it emitted a signal comes before every queued slot that runs later;
/// - what a thread did before it queued a call to an object comes before what that object is called
///   for later;
/// - what a thread did before it gave work to a thread pool comes before that work, and the work
///   before waitForDone() returns;
/// - what a thread did before QThread::quit() comes before the deletions that follow the loop's
/// end;
/// - what an event loop's thread did comes before QThread::wait() on that thread returns.
///
/// Nothing else becomes ordered: what a thread does after it has emitted or queued is still a race
/// with the slot, and what it does after it has given work away with the work. Parallel loops run on
/// the thread that starts them.
class TestApplication : public QApplication
{
public:
    using QApplication::QApplication;

#if defined(MELL_THREAD_SANITIZER)
    bool notify(QObject* receiver, QEvent* event) override;
#endif
};
