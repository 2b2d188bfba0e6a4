// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

/// Measures wall time in seconds.
class Stopwatch
{
public:
    double seconds() const { return std::chrono::duration<double>(Clock::now() - m_begin).count(); }

    /// The seconds since the last start, and begins anew.
    double restart()
    {
        double const passed = seconds();
        m_begin = Clock::now();
        return passed;
    }

private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point m_begin = Clock::now();
};
