// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/jobs/EventNotify.h"

EventNotify* EventNotify::instance()
{
    static EventNotify notify;
    return &notify;
}

void EventNotify::emitStartEvent()
{
    emit startEvent();
}

void EventNotify::emitEndEvent()
{
    emit endEvent();
}
