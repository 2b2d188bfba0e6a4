// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/ContactFinder.h"

#include "host/mesh/ExactSigns.h"
#include "host/services/TriangleTree.h"

#include <tbb/blocked_range.h>
#include <tbb/enumerable_thread_specific.h>
#include <tbb/parallel_for.h>

#include <algorithm>
#include <cmath>

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

/// A triangle's plane for telling quickly that another triangle lies on one side of it.
class QuickPlane
{
public:
    explicit QuickPlane(TriangleCorners const& t) : m_origin(t[0])
    {
        ExactSigns::Offset const u(t[0], t[1]), v(t[0], t[2]);
        m_normal[0] = u.y * v.z - u.z * v.y;
        m_normal[1] = u.z * v.x - u.x * v.z;
        m_normal[2] = u.x * v.y - u.y * v.x;
        double const reach = std::max({std::abs(u.x), std::abs(u.y), std::abs(u.z), std::abs(v.x),
                                       std::abs(v.y), std::abs(v.z)});
        m_bound = ExactSigns::volumeErrorBound * reach * reach;
    }

    /// False if in doubt.
    bool hasOnOneSide(TriangleCorners const& t) const
    {
        double low = 0, high = 0, reach = 0;
        for (std::size_t k = 0; k < 3; ++k) {
            ExactSigns::Offset const w(m_origin, t[k]);
            double const height = m_normal[0] * w.x + m_normal[1] * w.y + m_normal[2] * w.z;
            reach = std::max({reach, std::abs(w.x), std::abs(w.y), std::abs(w.z)});
            low = k == 0 ? height : std::min(low, height);
            high = k == 0 ? height : std::max(high, height);
        }
        double const bound = m_bound * reach;
        return low > bound || high < -bound;
    }

private:
    UPoint3<float> m_origin;
    double m_normal[3];
    double m_bound;
};

class ContactFinder
{
public:
    ContactFinder(OperandSoup const& soup, ToolGrid const& grid) : m_soup(soup), m_grid(grid)
    {
        m_boxes.reserve(soup.triangleCount() - soup.firstTriangleOfSecond);
        m_planes.reserve(soup.triangleCount() - soup.firstTriangleOfSecond);
        for (std::uint32_t t = soup.firstTriangleOfSecond; t < soup.triangleCount(); ++t) {
            TriangleCorners const corners = cornersOf(soup, t);
            m_boxes.push_back(boxOf(corners));
            m_planes.emplace_back(corners);
        }
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
        candidates.clear();
        m_grid.forTriangles(m_grid.placeOf(corners[0]), m_grid.placeOf(corners[1]),
                            m_grid.placeOf(corners[2]), [&](std::uint32_t t) {
                                if (m_boxes[t].overlaps(box) && !m_planes[t].hasOnOneSide(corners))
                                    candidates.push_back(t);
                            });
        if (candidates.empty())
            return;
        QuickPlane const plane(corners);
        std::sort(candidates.begin(), candidates.end());
        auto const last = std::unique(candidates.begin(), candidates.end());
        for (auto t = candidates.begin(); t != last; ++t) {
            std::uint32_t const second = m_soup.firstTriangleOfSecond + *t;
            TriangleCorners const others = cornersOf(m_soup, second);
            if (plane.hasOnOneSide(others))
                continue;
            TriangleContact const contact = contactOf(corners, others);
            if (contact.count > 0 || contact.isCoplanar)
                found.push_back({triangle, second, contact});
        }
    }

    OperandSoup const& m_soup;
    ToolGrid const& m_grid;
    std::vector<Box> m_boxes;
    std::vector<QuickPlane> m_planes;
};

}  // namespace

std::vector<TrianglePair> findContacts(OperandSoup const& soup, ToolGrid const& grid,
                                       StageProgress& progress)
{
    return ContactFinder(soup, grid).run(progress);
}
