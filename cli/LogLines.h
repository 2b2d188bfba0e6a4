// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/jobs/ConsoleSingleton.h"

#include <string>

/// Keeps the last line that is logged while it lives: the reason of a failure.
class LogLines
{
public:
    LogLines()
    {
        Base::ConsoleSingleton::Instance().setListener(
            [this](std::string const& line) { m_last = line; });
    }
    ~LogLines() { Base::ConsoleSingleton::Instance().setListener({}); }
    LogLines(LogLines const&) = delete;
    LogLines& operator=(LogLines const&) = delete;

    /// Empty if nothing was logged.
    std::string const& last() const { return m_last; }

private:
    std::string m_last;
};
