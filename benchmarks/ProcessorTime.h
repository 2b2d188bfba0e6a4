// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <ctime>

/// Seconds of processor time that all threads of this process have taken so far, the system's work for
/// them included.
inline double processorSeconds()
{
    timespec time;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) + 1e-9 * double(time.tv_nsec);
}
