// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/ContactFinder.h"

#include "host/mesh/ExactSigns.h"
#include "host/services/Lanes.h"
#include "host/services/Polling.h"
#include "host/services/TriangleTree.h"

#include <tbb/blocked_range.h>
#include <tbb/enumerable_thread_specific.h>
#include <tbb/parallel_for.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <cmath>
#include <limits>
#include <span>

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

/// Four boxes, by axis and then by box. Those that are left over overlap nothing.
struct FourBoxes
{
    static constexpr float empty = std::numeric_limits<float>::infinity();
    static constexpr std::array<float, 4> lows{empty, empty, empty, empty},
        highs{-empty, -empty, -empty, -empty};

    std::array<std::array<float, 4>, 3> low{lows, lows, lows}, high{highs, highs, highs};

    void widen(std::size_t i, Box const& box)
    {
        for (std::size_t k = 0; k < 3; ++k) {
            low[k][i] = std::min(low[k][i], box.low[k]);
            high[k][i] = std::max(high[k][i], box.high[k]);
        }
    }
    /// Bit i is set if box i overlaps another.
    std::uint32_t overlapping(Box const& box) const
    {
        IntLanes apart = {};
        for (std::size_t k = 0; k < 3; ++k)
            apart |= (loadFloats(low[k].data()) > box.high[k]) |
                     (loadFloats(high[k].data()) < box.low[k]);
        return ~bitsOf(apart) & 15;
    }
};

/// The boxes and planes of the tool's triangles in one block of cells.
class BlockBoxes
{
public:
    void fill(OperandSoup const& soup, std::span<ToolGrid::Reference const> references)
    {
        m_fours.assign((references.size() + 3) / 4, {});
        m_unions.assign((m_fours.size() + 3) / 4, {});
        m_planes.clear();
        m_planes.reserve(references.size());
        for (std::size_t i = 0; i < references.size(); ++i) {
            TriangleCorners const corners =
                cornersOf(soup, soup.firstTriangleOfSecond + references[i].triangle);
            Box const box = boxOf(corners);
            m_fours[i / 4].widen(i % 4, box);
            m_unions[i / 16].widen(i / 4 % 4, box);
            m_planes.emplace_back(corners);
        }
    }

    /// The plane of the triangle of a reference.
    QuickPlane const& plane(std::size_t i) const { return m_planes[i]; }

    /// Calls `visit(i)` for the places of references whose triangles' boxes overlap a box.
    template <typename Visit>
    void forOverlapping(Box const& box, Visit const& visit) const
    {
        for (std::size_t u = 0; u < m_unions.size(); ++u)
            for (std::uint32_t near = m_unions[u].overlapping(box); near != 0; near &= near - 1) {
                std::size_t const four = 4 * u + std::size_t(std::countr_zero(near));
                for (std::uint32_t hits = m_fours[four].overlapping(box); hits != 0;
                     hits &= hits - 1)
                    visit(4 * four + std::size_t(std::countr_zero(hits)));
            }
    }

private:
    std::vector<FourBoxes> m_fours;
    /// Each of the boxes around one of the fours.
    std::vector<FourBoxes> m_unions;
    std::vector<QuickPlane> m_planes;
};

/// The blocks that one thread has looked at last: triangles that lie close together share them.
class LatestBlocks
{
public:
    BlockBoxes const& at(OperandSoup const& soup, ToolGrid const& grid, std::size_t block)
    {
        Entry& entry = m_entries[block % m_entries.size()];
        if (entry.block != block)
            fill(entry, soup, grid.referencesOf(block), block);
        return entry.boxes;
    }

private:
    /// Where many triangles lie in one cell, few blocks are kept.
    static constexpr std::size_t mostBoxes = 1 << 17;

    struct Entry
    {
        std::size_t block = std::numeric_limits<std::size_t>::max();
        std::size_t count = 0;
        BlockBoxes boxes;
    };

    void fill(Entry& entry, OperandSoup const& soup,
              std::span<ToolGrid::Reference const> references, std::size_t block)
    {
        m_count += references.size() - entry.count;
        if (m_count > mostBoxes) {
            m_entries.fill({});
            m_count = references.size();
        }
        entry.boxes.fill(soup, references);
        entry.count = references.size();
        entry.block = block;
    }

    std::array<Entry, 64> m_entries;
    std::size_t m_count = 0;
};

class ContactFinder
{
public:
    ContactFinder(OperandSoup const& soup, ToolGrid const& grid, std::size_t most)
        : m_soup(soup), m_grid(grid), m_most(most)
    {}

    std::optional<std::vector<TrianglePair>> run(StageProgress& progress) const
    {
        std::vector<std::uint32_t> const order = orderByPage(progress);
        std::vector<std::vector<TrianglePair>> found((order.size() + blockSize - 1) / blockSize);
        tbb::enumerable_thread_specific<Scratch> scratch;
        std::atomic<std::size_t> count = 0;
        tbb::parallel_for(Range(0, found.size(), 1), [&](Range const& range) {
            for (std::size_t b = range.begin(); b != range.end() && count <= m_most; ++b) {
                std::size_t const end = std::min(order.size(), (b + 1) * blockSize);
                for (std::size_t i = b * blockSize; i < end; ++i)
                    test(order[i], scratch.local(), found[b]);
                count += found[b].size();
                if (!progress.add(end - b * blockSize))
                    return;
            }
        });
        if (count > m_most)
            return {};
        return inOrder(found, progress);
    }

private:
    /// What a thread keeps from one triangle to the next.
    struct Scratch
    {
        std::vector<std::uint32_t> candidates;
        LatestBlocks blocks;
    };

    /// The first operand's triangles by the page of a corner, so that neighbours follow each other.
    std::vector<std::uint32_t> orderByPage(StageProgress& progress) const
    {
        Polling polling(progress);
        std::uint32_t const count = m_soup.firstTriangleOfSecond;
        auto const pageOf = [&](std::uint32_t t) {
            return m_grid.pageOf(m_grid.placeOf(m_soup.mesh.point(t, 0)));
        };
        std::vector<std::uint32_t> next(m_grid.pageCount() + 1, 0);
        for (std::uint32_t t = 0; t < count; ++t, polling.step())
            ++next[pageOf(t) + 1];
        for (std::size_t page = 1; page < next.size(); ++page, polling.step())
            next[page] += next[page - 1];
        std::vector<std::uint32_t> order(count);
        for (std::uint32_t t = 0; t < count; ++t, polling.step())
            order[next[pageOf(t)]++] = t;
        return order;
    }

    /// The pairs of all blocks in the order of the first triangle; those of one triangle are
    /// together already, and in order.
    std::vector<TrianglePair> inOrder(std::vector<std::vector<TrianglePair>>& found,
                                      StageProgress& progress) const
    {
        Polling polling(progress);
        std::vector<std::uint32_t> next(m_soup.firstTriangleOfSecond + std::size_t(1), 0);
        for (auto const& block : found)
            for (TrianglePair const& pair : block) {
                polling.step();
                ++next[pair.first + 1];
            }
        for (std::size_t t = 1; t < next.size(); ++t, polling.step())
            next[t] += next[t - 1];
        std::vector<TrianglePair> pairs(next.back());
        for (auto& block : found) {
            for (TrianglePair const& pair : block) {
                polling.step();
                pairs[next[pair.first]++] = pair;
            }
            block = {};
        }
        return pairs;
    }

    void test(std::uint32_t triangle, Scratch& scratch, std::vector<TrianglePair>& found) const
    {
        TriangleCorners const corners = cornersOf(m_soup, triangle);
        std::vector<std::uint32_t>& candidates = scratch.candidates;
        findCandidates(corners, scratch.blocks, candidates);
        if (candidates.empty())
            return;
        QuickPlane const plane(corners);
        for (std::uint32_t const t : candidates) {
            std::uint32_t const second = m_soup.firstTriangleOfSecond + t;
            TriangleCorners const others = cornersOf(m_soup, second);
            if (plane.hasOnOneSide(others))
                continue;
            TriangleContact const contact = contactOf(corners, others);
            if (contact.count > 0 || contact.isCoplanar)
                found.push_back({triangle, second, contact});
        }
    }

    /// The tool's triangles with cells and a box in common with a triangle, in order, but for those
    /// whose plane certainly has it on one side: of long triangles that lie aslant, most.
    void findCandidates(TriangleCorners const& corners, LatestBlocks& blocks,
                        std::vector<std::uint32_t>& candidates) const
    {
        Box const box = boxOf(corners);
        candidates.clear();
        m_grid.forBlocks(
            m_grid.placeOf(corners[0]), m_grid.placeOf(corners[1]), m_grid.placeOf(corners[2]),
            [&](ToolGrid::CellsOfBlock const& cells) {
                auto const references = m_grid.referencesOf(cells.block);
                BlockBoxes const& boxes = blocks.at(m_soup, m_grid, cells.block);
                boxes.forOverlapping(box, [&](std::size_t i) {
                    if (cells.meet(references[i]) && !boxes.plane(i).hasOnOneSide(corners))
                        candidates.push_back(references[i].triangle);
                });
            });
        std::sort(candidates.begin(), candidates.end());
        candidates.erase(std::unique(candidates.begin(), candidates.end()), candidates.end());
    }

    OperandSoup const& m_soup;
    ToolGrid const& m_grid;
    std::size_t m_most;
};

}  // namespace

std::optional<std::vector<TrianglePair>> findContacts(OperandSoup const& soup, ToolGrid const& grid,
                                                      std::size_t most, StageProgress& progress)
{
    return ContactFinder(soup, grid, most).run(progress);
}
