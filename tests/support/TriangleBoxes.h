// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UBox3.h"
#include "tests/support/Soup.h"

#include <cstdint>
#include <vector>

namespace judge {

/// A tree of boxes around the triangles of a soup, for judging results only. The soup must outlive
/// it.
class TriangleBoxes
{
public:
    explicit TriangleBoxes(Soup const& soup);

    /// Calls `visit` with each triangle whose box, and all boxes around it, `meets` accepts.
    template <typename Meets, typename Visit>
    void search(Meets const& meets, Visit const& visit) const
    {
        if (!m_order.empty())
            searchBelow(0, 0, std::uint32_t(m_order.size()), meets, visit);
    }

    UBox3<float> boxOf(std::uint32_t triangle) const;
    /// The box of all; null without triangles.
    UBox3<float> bounds() const { return m_boxes.empty() ? UBox3<float>() : m_boxes[0]; }

private:
    // A node's children follow in preorder; a range of at most `leafSize` triangles is a leaf.
    static constexpr std::uint32_t leafSize = 4;

    void build(std::uint32_t first, std::uint32_t last);

    /// Returns the place behind the last node below.
    template <typename Meets, typename Visit>
    std::uint32_t searchBelow(std::uint32_t node, std::uint32_t first, std::uint32_t last,
                              Meets const& meets, Visit const& visit) const
    {
        if (!meets(m_boxes[node]))
            return m_behind[node];
        if (last - first <= leafSize) {
            for (std::uint32_t i = first; i < last; ++i)
                if (meets(boxOf(m_order[i])))
                    visit(m_order[i]);
            return node + 1;
        }
        std::uint32_t const middle = first + (last - first) / 2;
        std::uint32_t const next = searchBelow(node + 1, first, middle, meets, visit);
        return searchBelow(next, middle, last, meets, visit);
    }

    Soup const& m_soup;
    std::vector<std::uint32_t> m_order;
    std::vector<UBox3<float>> m_boxes;
    std::vector<std::uint32_t> m_behind;
};

/// Whether two boxes have a point in common.
inline bool doMeet(UBox3<float> const& a, UBox3<float> const& b)
{
    for (int k = 0; k < 3; ++k)
        if (a.min[k] > b.max[k] || b.min[k] > a.max[k])
            return false;
    return true;
}

}  // namespace judge
