// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestApplication.h"

#if defined(MELL_THREAD_SANITIZER)

#include <tbb/global_control.h>

#include <QDeadlineTimer>
#include <QEvent>
#include <QRunnable>
#include <QThread>
#include <QThreadPool>

#include <dlfcn.h>
#include <functional>
#include <sanitizer/tsan_interface.h>
#include <utility>

// Of the sanitizer's library; no header of it has them.
extern "C" {
void AnnotateIgnoreReadsBegin(char const* file, int line);
void AnnotateIgnoreReadsEnd(char const* file, int line);
void AnnotateIgnoreWritesBegin(char const* file, int line);
void AnnotateIgnoreWritesEnd(char const* file, int line);
}

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

/// Work for a pool, ordered by its own address: that is known before anything of it is read.
class OrderedWork : public QRunnable
{
public:
    OrderedWork(QThreadPool& pool, std::function<void()> work)
        : m_pool(pool), m_work(std::move(work))
    {}

    void run() override
    {
        __tsan_acquire(this);
        m_work();
        m_work = {};
        __tsan_release(&m_pool);
    }

private:
    QThreadPool& m_pool;
    std::function<void()> m_work;
};

}  // namespace

bool TestApplication::notify(QObject* receiver, QEvent* event)
{
    // Both types reach a receiver only through the queue of its thread.
    if (event->type() == QEvent::MetaCall || event->type() == QEvent::DeferredDelete) {
        __tsan_acquire(&eventQueues);
        __tsan_acquire(receiver);
    }
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

bool QMetaObject::invokeMethodImpl(QObject* object, QtPrivate::QSlotObjectBase* slot,
                                   Qt::ConnectionType type, void* result)
{
    static auto* const invokeInQt =
        original<bool(QObject*, QtPrivate::QSlotObjectBase*, Qt::ConnectionType, void*)>(
            "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt"
            "14ConnectionTypeEPv");
    __tsan_release(object);
    if (type != Qt::QueuedConnection)
        return invokeInQt(object, slot, type, result);
    // Whoever comes last frees the record of the call, which Qt counts where nobody sees it.
    AnnotateIgnoreReadsBegin(__FILE__, __LINE__);
    AnnotateIgnoreWritesBegin(__FILE__, __LINE__);
    bool const isQueued = invokeInQt(object, slot, type, result);
    AnnotateIgnoreWritesEnd(__FILE__, __LINE__);
    AnnotateIgnoreReadsEnd(__FILE__, __LINE__);
    return isQueued;
}

void QThreadPool::start(std::function<void()> work, int priority)
{
    static auto* const startInQt =
        original<void(QThreadPool*, QRunnable*, int)>("_ZN11QThreadPool5startEP9QRunnablei");
    auto* const ordered = new OrderedWork(*this, std::move(work));
    __tsan_release(ordered);
    startInQt(this, ordered, priority);
}

bool QThreadPool::waitForDone(int milliseconds)
{
    static auto* const waitInQt =
        original<bool(QThreadPool*, int)>("_ZN11QThreadPool11waitForDoneEi");
    bool const isDone = waitInQt(this, milliseconds);
    if (isDone)
        __tsan_acquire(this);
    return isDone;
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
