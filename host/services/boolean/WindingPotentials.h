// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <numeric>
#include <optional>
#include <utility>
#include <vector>

/// Winding numbers of which differences are known at first: disjoint sets of members with the
/// difference of each from its set's root (weighted union-find), and the root's number once that of
/// any member is known.
class WindingPotentials
{
public:
    explicit WindingPotentials(std::size_t count)
        : m_parents(count), m_offsets(count, 0), m_anchors(count, unknown)
    {
        std::iota(m_parents.begin(), m_parents.end(), std::uint32_t(0));
    }

    struct Place
    {
        std::uint32_t root;
        /// The member's number less that of the root.
        int offset;
    };
    Place placeOf(std::uint32_t member)
    {
        std::uint32_t root = member;
        int offset = 0;
        for (; m_parents[root] != root; root = m_parents[root])
            offset += m_offsets[root];
        // The members on the way hang on the root from now on.
        for (int rest = offset; m_parents[member] != member;) {
            rest -= std::exchange(m_offsets[member], rest);
            member = std::exchange(m_parents[member], root);
        }
        return {root, offset};
    }

    /// Notes that b's number is a's plus a difference. Before the first number is set.
    /// returns  false if what is known says otherwise
    bool relate(std::uint32_t a, std::uint32_t b, int difference)
    {
        Place const p = placeOf(a), q = placeOf(b);
        if (p.root == q.root)
            return q.offset == p.offset + difference;
        // The smaller number stays, so that chains stay short enough and the outcome is one.
        int const offset = p.offset + difference - q.offset;
        if (p.root < q.root) {
            m_parents[q.root] = p.root;
            m_offsets[q.root] = offset;
        } else {
            m_parents[p.root] = q.root;
            m_offsets[p.root] = -offset;
        }
        return true;
    }

    /// Sets the number of a member.
    /// returns  false if it is known and another
    bool set(std::uint32_t member, int number)
    {
        Place const p = placeOf(member);
        int& anchor = m_anchors[p.root];
        if (anchor == unknown)
            anchor = number - p.offset;
        return anchor == number - p.offset;
    }

    std::optional<int> numberOf(std::uint32_t member)
    {
        Place const p = placeOf(member);
        if (m_anchors[p.root] == unknown)
            return {};
        return m_anchors[p.root] + p.offset;
    }

private:
    static constexpr int unknown = -0x7fffffff;

    std::vector<std::uint32_t> m_parents;
    std::vector<int> m_offsets;
    std::vector<int> m_anchors;
};
