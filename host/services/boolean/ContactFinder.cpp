// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/ContactFinder.h"

#include "host/services/TriangleTree.h"

#include <tbb/blocked_range.h>
#include <tbb/enumerable_thread_specific.h>
#include <tbb/parallel_for.h>

#include <algorithm>

namespace {

using Box = TriangleTree::Box;
using Range = tbb::blocked_range<std::size_t>;
constexpr std::size_t blockSize = 256;

TriangleCorners cornersOf(OperandSoup const& soup, std::uint32_t triangle)
{
    return {soup.mesh.point(triangle, 0), soup.mesh.point(triangle, 1),
            soup.mesh.point(triangle, 2)};
}

Box boxOf(TriangleCorners const& t)
{
    Box box;
    for (std::size_t k = 0; k < 3; ++k) {
        auto const [low, high] = std::minmax({t[0][int(k)], t[1][int(k)], t[2][int(k)]});
        box.low[k] = low;
        box.high[k] = high;
    }
    box.low[3] = box.high[3] = 0;
    return box;
}

class ContactFinder
{
public:
    ContactFinder(OperandSoup const& soup, ToolGrid const& grid) : m_soup(soup), m_grid(grid)
    {
        m_boxes.reserve(soup.triangleCount() - soup.firstTriangleOfSecond);
        for (std::uint32_t t = soup.firstTriangleOfSecond; t < soup.triangleCount(); ++t)
            m_boxes.push_back(boxOf(cornersOf(soup, t)));
    }

    std::vector<TrianglePair> run(StageProgress& progress) const
    {
        std::size_t const count = m_soup.firstTriangleOfSecond;
        std::vector<std::vector<TrianglePair>> found((count + blockSize - 1) / blockSize);
        tbb::enumerable_thread_specific<std::vector<std::uint32_t>> candidates;
        tbb::parallel_for(Range(0, found.size(), 1), [&](Range const& range) {
            for (std::size_t b = range.begin(); b != range.end(); ++b) {
                std::size_t const end = std::min(count, (b + 1) * blockSize);
                for (std::size_t t = b * blockSize; t < end; ++t)
                    test(std::uint32_t(t), candidates.local(), found[b]);
                if (!progress.add(blockSize))
                    return;
            }
        });
        std::vector<TrianglePair> pairs;
        for (auto const& block : found)
            pairs.insert(pairs.end(), block.begin(), block.end());
        return pairs;
    }

private:
    void test(std::uint32_t triangle, std::vector<std::uint32_t>& candidates,
              std::vector<TrianglePair>& found) const
    {
        TriangleCorners const corners = cornersOf(m_soup, triangle);
        Box const box = boxOf(corners);
        auto const range = ToolGrid::rangeOf(m_grid.placeOf(corners[0]), m_grid.placeOf(corners[1]),
                                             m_grid.placeOf(corners[2]));
        candidates.clear();
        m_grid.forTriangles(range, [&](std::uint32_t t) {
            if (m_boxes[t].overlaps(box))
                candidates.push_back(t);
        });
        if (candidates.empty())
            return;
        std::sort(candidates.begin(), candidates.end());
        auto const last = std::unique(candidates.begin(), candidates.end());
        for (auto t = candidates.begin(); t != last; ++t) {
            std::uint32_t const second = m_soup.firstTriangleOfSecond + *t;
            TriangleContact const contact = contactOf(corners, cornersOf(m_soup, second));
            if (contact.count > 0 || contact.isCoplanar)
                found.push_back({triangle, second, contact});
        }
    }

    OperandSoup const& m_soup;
    ToolGrid const& m_grid;
    std::vector<Box> m_boxes;
};

}  // namespace

std::vector<TrianglePair> findContacts(OperandSoup const& soup, ToolGrid const& grid,
                                       StageProgress& progress)
{
    return ContactFinder(soup, grid).run(progress);
}
