// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

/// Polls now and then in a loop of many small steps.
class PollingSteps
{
public:
    /// So many steps, each of less than a microsecond, go without a poll.
    static constexpr unsigned interval = 4096;

    /// poll  borrowed; may be empty
    explicit PollingSteps(std::function<void()> const& poll) : m_poll(poll) {}

    /// Counts one step. Throws what the poll throws.
    void step()
    {
        if (++m_steps % interval == 0 && m_poll)
            m_poll();
    }

private:
    std::function<void()> const& m_poll;
    unsigned m_steps = 0;
};
