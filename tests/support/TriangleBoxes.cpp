// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TriangleBoxes.h"

#include <algorithm>
#include <numeric>

namespace judge {

TriangleBoxes::TriangleBoxes(Soup const& soup) : m_soup(soup), m_order(soup.triangles.size())
{
    std::iota(m_order.begin(), m_order.end(), 0u);
    if (!m_order.empty())
        build(0, std::uint32_t(m_order.size()));
}

UBox3<float> TriangleBoxes::boxOf(std::uint32_t triangle) const
{
    UBox3<float> box;
    for (std::uint32_t const corner : m_soup.triangles[triangle])
        box.Add(m_soup.points[corner]);
    return box;
}

void TriangleBoxes::build(std::uint32_t first, std::uint32_t last)
{
    std::size_t const node = m_boxes.size();
    UBox3<float> box;
    for (std::uint32_t i = first; i < last; ++i)
        box.Add(boxOf(m_order[i]));
    m_boxes.push_back(box);
    m_behind.push_back(0);
    if (last - first > leafSize) {
        int axis = 0;
        for (int k = 1; k < 3; ++k)
            if (box.max[k] - box.min[k] > box.max[axis] - box.min[axis])
                axis = k;
        std::uint32_t const middle = first + (last - first) / 2;
        // The corners' sum tells the middle; ties by index, so that the tree is always the same.
        auto const place = [&](std::uint32_t triangle) {
            auto const& t = m_soup.triangles[triangle];
            return std::pair(double(m_soup.points[t[0]][axis]) + m_soup.points[t[1]][axis] +
                                 m_soup.points[t[2]][axis],
                             triangle);
        };
        std::nth_element(m_order.begin() + first, m_order.begin() + middle, m_order.begin() + last,
                         [&](auto a, auto b) { return place(a) < place(b); });
        build(first, middle);
        build(middle, last);
    }
    m_behind[node] = std::uint32_t(m_boxes.size());
}

}  // namespace judge
