// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestApplication.h"

#if defined(__SANITIZE_THREAD__)

#include <tbb/global_control.h>

#include <QDeadlineTimer>
#include <QEvent>
#include <QThread>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace {

/// Stands for Qt's event queues: released by those who fill or close one, acquired by deliveries.
char eventQueues;

tbb::global_control const oneThreadPerLoop(tbb::global_control::max_allowed_parallelism, 1);

/// Qt's own definition of an operation that this file puts itself before.
template <typename Function>
Function* original(char const* symbol)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, symbol));
}

}  // namespace

bool TestApplication::notify(QObject* receiver, QEvent* event)
{
    // Both types reach a receiver only through the queue of its thread.
    if (event->type() == QEvent::MetaCall || event->type() == QEvent::DeferredDelete)
        __tsan_acquire(&eventQueues);
    bool const isHandled = QApplication::notify(receiver, event);
    __tsan_release(QThread::currentThread());
    return isHandled;
}

// The program's definition is found before the library's, so these calls of our code come through
// here. Qt's own do not.

void QMetaObject::activate(QObject* sender, QMetaObject const* type, int signal, void** arguments)
{
    static auto* const activateInQt = original<void(QObject*, QMetaObject const*, int, void**)>(
        "_ZN11QMetaObject8activateEP7QObjectPKS_iPPv");
    __tsan_release(&eventQueues);
    activateInQt(sender, type, signal, arguments);
}

void QThread::quit()
{
    static auto* const quitInQt = original<void(QThread*)>("_ZN7QThread4quitEv");
    __tsan_release(&eventQueues);
    quitInQt(this);
}

bool QThread::wait(QDeadlineTimer deadline)
{
    static auto* const waitInQt =
        original<bool(QThread*, QDeadlineTimer)>("_ZN7QThread4waitE14QDeadlineTimer");
    bool const isFinished = waitInQt(this, deadline);
    if (isFinished)
        __tsan_acquire(this);
    return isFinished;
}

#endif
