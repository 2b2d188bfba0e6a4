// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <chrono>
#include <pthread.h>
#include <string>
#include <thread>
#include <vector>

/// Finds out what a thread does while something takes long: looks at its stack every few
/// milliseconds from the moment on from which it takes too long. Linux alone; names come from
/// addr2line. One at a time.
class StackSampler
{
public:
    /// Watches the thread that makes it.
    explicit StackSampler(std::chrono::milliseconds tooLong);
    ~StackSampler();

    // Around what may take long.

    void begin();
    void end();

    /// What was seen since begin(), the most frequent first: how often, and the functions that were
    /// running, each before what has called it.
    static std::vector<std::string> seen();

private:
    using Clock = std::chrono::steady_clock;

    void watch();

    std::chrono::milliseconds m_tooLong;
    pthread_t m_watched;
    /// Since when, in ticks of the clock; 0 while nothing runs.
    std::atomic<Clock::rep> m_since = 0;
    std::atomic<bool> m_isEnding = false;
    std::thread m_thread;
};
