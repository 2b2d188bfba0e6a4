// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <vector>

/// Disjoint sets of the numbers from 0 on (Galler and Fischer, 1964), with path halving. A set's
/// root is its smallest member, so that the outcome does not depend on the order of the joins. One
/// thread at a time.
class DisjointSets
{
public:
    explicit DisjointSets(std::size_t count) : m_parents(count)
    {
        std::iota(m_parents.begin(), m_parents.end(), std::uint32_t(0));
    }

    std::uint32_t root(std::uint32_t member)
    {
        while (m_parents[member] != member)
            member = m_parents[member] = m_parents[m_parents[member]];
        return member;
    }

    /// Makes one set of those of two members. Returns whether they were two.
    bool unite(std::uint32_t a, std::uint32_t b)
    {
        a = root(a);
        b = root(b);
        m_parents[std::max(a, b)] = std::min(a, b);
        return a != b;
    }

private:
    std::vector<std::uint32_t> m_parents;
};
