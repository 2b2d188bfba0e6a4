// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/jobs/Threads.h"

#include <tbb/global_control.h>

#include <memory>

namespace Threads {

namespace {

std::unique_ptr<tbb::global_control>& limit()
{
    static std::unique_ptr<tbb::global_control> current;
    return current;
}

}  // namespace

void setThreadCount(int count)
{
    limit().reset();
    if (count >= 1)
        limit() = std::make_unique<tbb::global_control>(
            tbb::global_control::max_allowed_parallelism, std::size_t(count));
}

int threadCount()
{
    return int(tbb::global_control::active_value(tbb::global_control::max_allowed_parallelism));
}

}  // namespace Threads
