// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/StageProgress.h"

#include "host/services/EveryStep.h"

#include <tbb/task_group.h>

#include <algorithm>

namespace {

int percentOf(std::size_t done, std::size_t amount, int span)
{
    return int(std::min(1.0, double(done) / double(amount)) * span);
}

}  // namespace

StageProgress::StageProgress(std::function<void(int)> const& progress)
    : m_progress(progress), m_caller(std::this_thread::get_id())
{}

void StageProgress::begin(int from, int to, std::size_t amount)
{
    m_from = from;
    m_to = to;
    m_done.store(0, std::memory_order_relaxed);
    setAmount(amount);
    report(from);
}

void StageProgress::setAmount(std::size_t amount)
{
    // Percentages never fall: what is left of the stage belongs to the steps to come.
    m_from += percentOf(m_done.exchange(0, std::memory_order_relaxed), m_amount, m_to - m_from);
    m_amount = std::max<std::size_t>(amount, 1);
}

bool StageProgress::add(std::size_t steps)
{
    std::size_t const done = m_done.fetch_add(steps, std::memory_order_relaxed) + steps;
    if (std::this_thread::get_id() != m_caller)
        return !tbb::is_current_task_group_canceling();
    if (m_progress && (std::chrono::steady_clock::now() - m_last > std::chrono::milliseconds(10) ||
                       EveryStep::isWanted())) {
        report(m_from + percentOf(done, m_amount, m_to - m_from));
    }
    return true;
}

void StageProgress::finish()
{
    report(m_to);
}

void StageProgress::report(int percent)
{
    m_last = std::chrono::steady_clock::now();
    if (!m_progress)
        return;
    m_hasThrown = true;
    m_progress(percent);
    m_hasThrown = false;
}

int& EveryStep::count()
{
    static thread_local int count = 0;
    return count;
}
