// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Stopwatch.h"

#include <cstddef>

/// Shows how far a batch has come, in one line of standard error, and says at its end what came of it.
class BatchProgress
{
public:
    BatchProgress(std::size_t count, bool isQuiet);

    /// isNew  done now, not in a run before
    void count(int status, bool isNew);
    void noteMemory(double megabytes);
    /// At most ten times a second.
    void show();
    void wipe();
    void summarise() const;

private:
    std::size_t done() const { return m_whole + m_open + m_failed; }

    std::size_t m_count;
    bool m_isQuiet;
    bool m_isVisible;
    bool m_isShown = false;
    std::size_t m_whole = 0, m_open = 0, m_failed = 0, m_doneBefore = 0;
    double m_peakMemoryMb = 0;
    Stopwatch m_watch;
    double m_lastShown = -1;
};
