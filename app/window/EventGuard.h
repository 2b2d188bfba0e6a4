// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>

#include <functional>

/// Keeps what the handler of an event throws from ending the program: it is told, and the next event goes on.
class EventGuard : public QObject
{
    Q_OBJECT

public:
    /// What `deliver` returns, or true, which means handled, where it throws.
    bool run(std::function<bool()> const& deliver);

signals:
    /// When the event is over. Of a cancel nothing is told.
    void failed(QString const& reason);

private:
    void tellLater();
};

/// All events go through a guard.
class GuardedApplication : public QApplication
{
public:
    using QApplication::QApplication;

    EventGuard const& guard() const { return m_guard; }
    bool notify(QObject* receiver, QEvent* event) override;

private:
    EventGuard m_guard;
};
