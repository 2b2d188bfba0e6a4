// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <functional>
#include <thread>

/// Turns work done by several threads into percentages on one thread: the one that made this object
/// and that runs the parallel loops. Reports at most every 10 ms.
class StageProgress
{
public:
    /// progress  may be empty; must outlive this object
    explicit StageProgress(std::function<void(int)> const& progress);

    /// Begins a stage of `amount` steps that takes the percentages `from` to `to`.
    /// throws  what the progress function throws
    void begin(int from, int to, std::size_t amount);

    /// Sets the number of steps that fill the rest of the stage, once it is known.
    void setAmount(std::size_t amount);

    /// Counts steps as done. Any thread; on the thread of the progress function it may throw what
    /// that throws, and the parallel loop around it ends on all threads.
    /// returns  whether the work goes on; false in a loop that is being left
    bool add(std::size_t steps);

    /// Whether the progress function has thrown: tells its exceptions from those of libraries.
    bool hasThrown() const { return m_hasThrown; }

    /// Reports that the last percentage of the stage is reached.
    void finish();

private:
    void report(int percent);

    std::function<void(int)> const& m_progress;
    std::thread::id m_caller;
    std::chrono::steady_clock::time_point m_last;
    std::atomic<std::size_t> m_done{0};
    std::size_t m_amount = 1;
    bool m_hasThrown = false;
    int m_from = 0;
    int m_to = 0;
};
