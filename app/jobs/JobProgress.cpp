// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/jobs/JobProgress.h"

#include "app/jobs/JobGuard.h"

#include <algorithm>
#include <cmath>

JobProgress::State JobProgress::state() const
{
    std::lock_guard const lock(m_lock);
    if (m_displays.empty())
        return {};
    Display const& shown = m_displays.back();
    std::chrono::duration<double> const passed = std::chrono::steady_clock::now() - shown.begun;
    return {true,
            shown.title,
            shown.percent,
            shown.canCancel,
            m_isCancelRequested,
            secondsLeft(passed.count(), shown.percent)};
}

std::optional<int> JobProgress::secondsLeft(double secondsPassed, int percent)
{
    constexpr double leastSeconds = 2;
    if (secondsPassed < leastSeconds || percent < 1 || percent >= 100)
        return {};
    double const left = secondsPassed * (100 - percent) / percent;
    double const step = left < 10 ? 1 : left < 60 ? 5 : 60;
    // Beyond any job.
    constexpr double most = 1e8;
    return int(std::ceil(std::min(left, most) / step) * step);
}

void JobProgress::requestCancel()
{
    {
        std::lock_guard const lock(m_lock);
        if (m_displays.empty())
            return;
        m_isCancelRequested = true;
    }
    tell();
}

void JobProgress::setListener(std::function<void()> listener)
{
    std::lock_guard const lock(m_listenerLock);
    m_listener = std::move(listener);
}

void JobProgress::begin(std::string const& title, std::uint64_t range)
{
    QString const text = QString::fromStdString(title);
    {
        std::lock_guard const lock(m_lock);
        if (m_displays.empty())
            m_isCancelRequested = false;
        m_displays.push_back({.title = text, .range = range});
    }
    JobGuard::instance()->displayOpened(text);
    tell();
}

void JobProgress::progress(std::uint64_t value)
{
    {
        std::lock_guard const lock(m_lock);
        if (m_displays.empty())
            return;
        Display& shown = m_displays.back();
        std::uint64_t const reached = std::min(value, shown.range);
        int const percent = shown.range == 0 ? 0 : int(double(reached) / double(shown.range) * 100);
        if (percent == shown.percent)
            return;
        shown.percent = percent;
    }
    tell();
}

void JobProgress::setCancelEnabled(bool enabled)
{
    {
        std::lock_guard const lock(m_lock);
        if (!m_displays.empty())
            m_displays.back().canCancel = enabled;
    }
    tell();
}

void JobProgress::end()
{
    {
        std::lock_guard const lock(m_lock);
        if (!m_displays.empty())
            m_displays.pop_back();
    }
    JobGuard::instance()->displayClosed();
    tell();
}

void JobProgress::tell()
{
    std::lock_guard const lock(m_listenerLock);
    if (m_listener)
        m_listener();
}
