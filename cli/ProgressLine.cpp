// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ProgressLine.h"

#include "cli/Cancel.h"
#include "cli/Numbers.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace {

constexpr auto refreshPeriod = std::chrono::milliseconds(100);

}  // namespace

void ProgressLine::begin(std::string const& title, std::uint64_t range)
{
    std::lock_guard const lock(m_guard);
    m_title = title;
    m_range = std::max<std::uint64_t>(range, 1);
    m_begin = Clock::now();
}

void ProgressLine::progress(std::uint64_t value)
{
    if (!m_isVisible)
        return;
    std::lock_guard const lock(m_guard);
    auto const now = Clock::now();
    if (now - m_lastShown < refreshPeriod)
        return;
    m_lastShown = now;
    show(std::min<std::uint64_t>(value * 100 / m_range, 100));
}

void ProgressLine::show(std::uint64_t percent)
{
    std::chrono::duration<double> const elapsed = m_lastShown - m_begin;
    std::string const line = wipeLine + m_title + "  " + std::to_string(percent) + " %  " +
                             fixed(elapsed.count(), 1) + " s";
    std::fputs(line.c_str(), stderr);
    std::fflush(stderr);
    m_isShown = true;
}

void ProgressLine::end()
{
    std::lock_guard const lock(m_guard);
    if (!m_isShown)
        return;
    std::fputs(wipeLine, stderr);
    std::fflush(stderr);
    m_isShown = false;
}

bool ProgressLine::isCancelRequested() const
{
    return Cancel::isRequested();
}

bool isTerminal()
{
    return isatty(STDERR_FILENO) != 0;
}
