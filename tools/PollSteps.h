// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>

namespace Freecut {

/// Asked from within long work, so that it can be given up; leaves it by throwing. May be empty.
/// Work on several threads asks on each of them.
using WorkPoll = std::function<void()>;

/// Asks once for a number of steps of work, some of which take together well below a millisecond.
class PollSteps
{
public:
    /// poll  borrowed
    explicit PollSteps(WorkPoll const& poll) : m_poll(poll) {}

    void step(std::size_t count = 1)
    {
        m_count += count;
        if (m_count < interval)
            return;
        m_count = 0;
        if (m_poll)
            m_poll();
    }

private:
    static constexpr std::size_t interval = 4096;

    WorkPoll const& m_poll;
    std::size_t m_count = 0;
};

}  // namespace Freecut
