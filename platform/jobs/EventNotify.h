// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

/// Tells the host that a long operation starts or ends. The host decides what it does meanwhile.
class EventNotify : public QObject
{
    Q_OBJECT

public:
    static EventNotify* instance();

    void emitStartEvent();
    void emitEndEvent();

signals:
    void startEvent();
    void endEvent();

private:
    EventNotify() = default;
};
