// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorProgress.h"

#include <chrono>
#include <future>
#include <memory>
#include <thread>
#include <type_traits>

/// Runs work that cannot be interrupted, such as moving a contour sideways, on a thread of its own,
/// and polls while it lasts. If the poll throws, the work is left to itself: it ends some time
/// later and what it made goes with it.
///
/// work    owns all that it reads; several may run at once
/// poll    with an empty one the work is done on the calling thread
/// throws  what the work and the poll throw
template <typename Work>
auto runPolled(Work work, ConnectorProgress::Poll const& poll) -> std::invoke_result_t<Work>
{
    using Result = std::invoke_result_t<Work>;
    if (!poll)
        return work();
    poll();
    std::packaged_task<Result()> task(std::move(work));
    std::future<Result> result = task.get_future();
    std::thread(std::move(task)).detach();
    while (result.wait_for(std::chrono::milliseconds(10)) != std::future_status::ready)
        poll();
    return result.get();
}
