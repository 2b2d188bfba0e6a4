// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <mutex>
#include <utility>
#include <vector>

/// What other threads hand over to the owner. They put it in and then ask the owner, by a queued call
/// without arguments, to look: what is handed over goes through this lock alone, not through an event.
///
/// thread  any
template <typename T>
class Inbox
{
public:
    Inbox() = default;
    /// Those who put things in have ended. What nobody has taken goes under the lock as well.
    ~Inbox() { takeAll(); }

    void put(T item)
    {
        std::lock_guard const lock(m_guard);
        m_items.push_back(std::move(item));
    }

    /// In the order in which they came.
    std::vector<T> takeAll()
    {
        std::lock_guard const lock(m_guard);
        return std::exchange(m_items, {});
    }

private:
    std::mutex m_guard;
    std::vector<T> m_items;
};
