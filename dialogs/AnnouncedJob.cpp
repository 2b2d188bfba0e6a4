// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/AnnouncedJob.h"

#include "platform/jobs/EventNotify.h"

namespace Freecut {

AnnouncedJob::~AnnouncedJob()
{
    if (m_isRunning)
        end();
}

void AnnouncedJob::start()
{
    m_isRunning = true;
    EventNotify::instance()->emitStartEvent();
}

void AnnouncedJob::end()
{
    m_isRunning = false;
    EventNotify::instance()->emitEndEvent();
}

}  // namespace Freecut
