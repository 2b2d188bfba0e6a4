// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/jobs/ProgressSink.h"

#include <chrono>
#include <mutex>

/// Goes back to the beginning of a terminal's line, and empties it.
inline constexpr char const* wipeLine = "\r\x1b[K";

/// Shows what runs, with percentage and elapsed time, in one line of standard error that is wiped
/// out at the end. It renews the line ten times a second, counted over all operations, so that many
/// short ones are seen too. It also hands the user's cancel to the operation that runs, visible or
/// not.
class ProgressLine : public Base::ProgressSink
{
public:
    explicit ProgressLine(bool isVisible) : m_isVisible(isVisible) {}

    void begin(std::string const& title, std::uint64_t range) override;
    void progress(std::uint64_t value) override;
    void setCancelEnabled(bool) override {}
    void end() override;
    bool isCancelRequested() const override;

private:
    using Clock = std::chrono::steady_clock;

    void show(std::uint64_t percent);

    bool const m_isVisible;
    std::mutex m_guard;
    std::string m_title;
    std::uint64_t m_range = 100;
    Clock::time_point m_begin;
    Clock::time_point m_lastShown = Clock::now();
    bool m_isShown = false;
};

/// Whether standard error is a terminal that somebody looks at.
bool isTerminal();
