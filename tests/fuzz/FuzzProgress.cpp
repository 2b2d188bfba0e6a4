// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/fuzz/FuzzProgress.h"

#include "FuzzedCommit.h"

#include <csignal>
#include <cstdio>
#include <ctime>

namespace {

volatile std::sig_atomic_t isAskedToEnd = 0;

extern "C" void askToEnd(int signal)
{
    isAskedToEnd = 1;
    std::signal(signal, SIG_DFL);
}

double processorSeconds()
{
    return double(std::clock()) / CLOCKS_PER_SEC;
}

}  // namespace

FuzzProgress::FuzzProgress(std::string kind, unsigned firstSeed, std::chrono::seconds interval)
    : m_kind(std::move(kind)),
      m_firstSeed(firstSeed),
      m_interval(interval),
      m_processorSecondsBefore(processorSeconds())
{}

void FuzzProgress::count(bool isRight, unsigned long operations)
{
    ++m_seeds;
    m_failures += !isRight;
    m_operations = operations;
    if (Clock::now() - m_told < m_interval)
        return;
    m_told = Clock::now();
    tell();
}

void FuzzProgress::tell() const
{
    double const seconds = std::chrono::duration<double>(Clock::now() - m_start).count();
    double const worked = processorSeconds() - m_processorSecondsBefore;
    std::printf(
        "%s: %lu operations in %u runs from seed %u, %u failures; go on with --seed %u; %.0f s, "
        "%.0f operations a second of processor time; commit %s\n",
        m_kind.c_str(), m_operations, m_seeds, m_firstSeed, m_failures, nextSeed(), seconds,
        worked > 0 ? double(m_operations) / worked : 0.0, fuzzedCommit());
    std::fflush(stdout);
}

char const* fuzzedCommit()
{
    return FUZZED_COMMIT;
}

void endFuzzBySignals()
{
    for (int const signal : {SIGTERM, SIGINT})
        std::signal(signal, askToEnd);
}

bool isFuzzEndedBySignal()
{
    return isAskedToEnd != 0;
}
