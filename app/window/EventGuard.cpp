// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/EventGuard.h"

#include "platform/jobs/Exceptions.h"
#include "platform/ui/FailureText.h"

bool EventGuard::run(std::function<bool()> const& deliver)
{
    try {
        return deliver();
    } catch (Mell::AbortException const&) {
    } catch (...) {
        tellLater();
    }
    return true;
}

void EventGuard::tellLater()
{
    try {
        QString const reason = Base::failureText();
        QMetaObject::invokeMethod(
            this, [this, reason] { emit failed(reason); }, Qt::QueuedConnection);
    } catch (...) {
        // There is no memory for a sentence either.
    }
}

bool GuardedApplication::notify(QObject* receiver, QEvent* event)
{
    return m_guard.run([&] { return QApplication::notify(receiver, event); });
}
