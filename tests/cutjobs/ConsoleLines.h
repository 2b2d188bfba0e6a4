// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/jobs/ConsoleSingleton.h"

#include <mutex>
#include <string>
#include <vector>

/// Keeps the lines of the log console while it lives.
class ConsoleLines
{
public:
    ConsoleLines()
    {
        Base::ConsoleSingleton::Instance().setListener([this](std::string const& line) {
            std::lock_guard const lock(m_guard);
            m_lines.push_back(line);
        });
    }
    ~ConsoleLines() { Base::ConsoleSingleton::Instance().setListener({}); }
    ConsoleLines(ConsoleLines const&) = delete;
    ConsoleLines& operator=(ConsoleLines const&) = delete;

    std::vector<std::string> lines() const
    {
        std::lock_guard const lock(m_guard);
        return m_lines;
    }

private:
    mutable std::mutex m_guard;
    std::vector<std::string> m_lines;
};
