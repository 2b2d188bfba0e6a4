// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>

/// Disjoint sets that several threads join at once. A set's root is its smallest member, so that
/// the outcome does not depend on the order of the joins.
///
/// After Anderson and Woll, "Wait-free parallel algorithms for the union-find problem", 1991.
class ShellUnion
{
public:
    explicit ShellUnion(std::size_t count) : m_parents(new std::atomic<std::uint32_t>[count])
    {
        for (std::size_t i = 0; i < count; ++i)
            m_parents[i].store(std::uint32_t(i), std::memory_order_relaxed);
    }

    std::uint32_t root(std::uint32_t member)
    {
        for (;;) {
            std::uint32_t parent = m_parents[member].load(std::memory_order_relaxed);
            if (parent == member)
                return member;
            std::uint32_t const above = m_parents[parent].load(std::memory_order_relaxed);
            if (above != parent)
                m_parents[member].compare_exchange_weak(parent, above, std::memory_order_relaxed);
            member = above;
        }
    }

    void join(std::uint32_t a, std::uint32_t b)
    {
        for (;;) {
            a = root(a);
            b = root(b);
            if (a == b)
                return;
            if (a < b)
                std::swap(a, b);
            std::uint32_t expected = a;
            if (m_parents[a].compare_exchange_strong(expected, b, std::memory_order_relaxed))
                return;
        }
    }

private:
    std::unique_ptr<std::atomic<std::uint32_t>[]> m_parents;
};
