// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/batch/BatchProgress.h"

#include "cli/ExitStatus.h"
#include "cli/Numbers.h"
#include "cli/ProgressLine.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr double refreshSeconds = 0.1;
/// Before, the first jobs say too little of the others.
constexpr double secondsBeforeAnEstimate = 2;

std::string jobs(std::size_t count)
{
    return grouped(count) + (count == 1 ? " job" : " jobs");
}

std::string duration(double seconds)
{
    auto const whole = std::size_t(seconds);
    if (whole < 100)
        return fixed(seconds, 1) + " s";
    if (whole < 6000)
        return std::to_string(whole / 60) + " min " + std::to_string(whole % 60) + " s";
    return std::to_string(whole / 3600) + " h " + std::to_string(whole / 60 % 60) + " min";
}

}  // namespace

BatchProgress::BatchProgress(std::size_t count, bool isQuiet)
    : m_count(count), m_isQuiet(isQuiet), m_isVisible(isTerminal() && !isQuiet)
{}

void BatchProgress::count(int status, bool isNew)
{
    if (status == EXIT_DONE)
        ++m_whole;
    else if (status == EXIT_PIECE_OPEN)
        ++m_open;
    else
        ++m_failed;
    if (!isNew)
        ++m_doneBefore;
}

void BatchProgress::noteMemory(double megabytes)
{
    m_peakMemoryMb = std::max(m_peakMemoryMb, megabytes);
}

void BatchProgress::show()
{
    double const now = m_watch.seconds();
    if (!m_isVisible || now - m_lastShown < refreshSeconds)
        return;
    m_lastShown = now;
    std::string line = wipeLine + grouped(done()) + " of " + jobs(m_count);
    if (m_failed > 0)
        line += ", " + grouped(m_failed) + " failed";
    std::size_t const doneNow = done() - m_doneBefore;
    if (doneNow > 0 && now > secondsBeforeAnEstimate)
        line += ", " + duration(now / double(doneNow) * double(m_count - done())) + " left";
    std::fputs(line.c_str(), stderr);
    std::fflush(stderr);
    m_isShown = true;
}

void BatchProgress::wipe()
{
    if (m_isShown)
        std::fputs(wipeLine, stderr);
    m_isShown = false;
}

void BatchProgress::summarise() const
{
    if (m_isQuiet)
        return;
    std::string text = jobs(m_count) + ": " + grouped(m_whole) + " done";
    if (m_open > 0)
        text += ", " + grouped(m_open) + " with pieces that are not closed";
    text += ", " + grouped(m_failed) + " failed";
    if (m_doneBefore > 0)
        text += "; " + grouped(m_doneBefore) + " of them in runs before";
    text += ". " + duration(m_watch.seconds());
    if (m_peakMemoryMb > 0)
        text += ", at most " + fixed(m_peakMemoryMb, 0) + " MB a job";
    std::fprintf(stderr, "%s.\n", text.c_str());
}
