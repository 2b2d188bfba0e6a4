// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <string>

/// What a fuzz run has done so far. It is told every minute and at its end, so that a run that is
/// killed still counts.
class FuzzProgress
{
public:
    /// interval  the time between two lines in the middle of the run
    FuzzProgress(std::string kind, unsigned firstSeed, std::chrono::seconds interval);

    /// After each seed. Prints a line when the interval has passed since the last one.
    void count(bool isRight, unsigned long operations);

    /// Prints a line whatever the time.
    void tell() const;

    unsigned seeds() const { return m_seeds; }
    unsigned failures() const { return m_failures; }
    unsigned nextSeed() const { return m_firstSeed + m_seeds; }

private:
    using Clock = std::chrono::steady_clock;

    std::string m_kind;
    unsigned m_firstSeed;
    std::chrono::seconds m_interval;
    Clock::time_point m_start = Clock::now();
    Clock::time_point m_told = m_start;
    double m_processorSecondsBefore;
    unsigned m_seeds = 0;
    unsigned m_failures = 0;
    unsigned long m_operations = 0;
};

/// The commit that the program was built from, with "-dirty" if files differed from it.
char const* fuzzedCommit();

/// From now on SIGTERM and SIGINT let a run end after its seed; a second one ends the program.
void endFuzzBySignals();

/// Whether such a signal came.
bool isFuzzEndedBySignal();
