// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

/// Directed edges between numbered points. They bound nothing if each edge runs once each way: then
/// triangles with these edges are a closed surface without edges of four.
class EdgeBalance
{
public:
    void add(std::uint32_t from, std::uint32_t to)
    {
        std::uint64_t const low = std::min(from, to), high = std::max(from, to);
        m_edges.push_back({low << 32 | high, from < to ? 1 : -1});
    }

    template <typename Corners>
    void addTriangle(Corners const& corners)
    {
        for (std::size_t k = 0; k < 3; ++k)
            add(corners[k], corners[(k + 1) % 3]);
    }

    bool isClosed()
    {
        std::sort(m_edges.begin(), m_edges.end(), before);
        if (m_edges.size() % 2 != 0)
            return false;
        for (std::size_t i = 0; i < m_edges.size(); i += 2) {
            bool const isPair = m_edges[i].key == m_edges[i + 1].key && m_edges[i].way == -1 &&
                                m_edges[i + 1].way == 1;
            bool const isMore = i > 0 && m_edges[i].key == m_edges[i - 1].key;
            if (!isPair || isMore)
                return false;
        }
        return true;
    }

    /// The edges without one that runs the other way, in a fixed order; `each` is given both ends.
    /// returns  false if an edge runs twice one way
    template <typename Each>
    bool forUnpaired(Each const& each)
    {
        std::sort(m_edges.begin(), m_edges.end(), before);
        for (std::size_t i = 0; i < m_edges.size(); ++i) {
            bool const isSameAsNext =
                i + 1 < m_edges.size() && m_edges[i].key == m_edges[i + 1].key;
            if (isSameAsNext && m_edges[i].way == m_edges[i + 1].way)
                return false;
            if (isSameAsNext) {
                ++i;
                continue;
            }
            std::uint32_t const low = std::uint32_t(m_edges[i].key >> 32);
            std::uint32_t const high = std::uint32_t(m_edges[i].key);
            m_edges[i].way > 0 ? each(low, high) : each(high, low);
        }
        return true;
    }

private:
    struct Edge
    {
        std::uint64_t key;
        int way;
    };

    static bool before(Edge const& a, Edge const& b)
    {
        return a.key != b.key ? a.key < b.key : a.way < b.way;
    }

    std::vector<Edge> m_edges;
};
