// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/SideCopies.h"

#include "host/mesh/RecordSlabs.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

#include <algorithm>
#include <new>
#include <thread>

namespace {

// A block and its copies stay in the second-level cache between the two loops over it.
constexpr std::size_t blockSize = 2048;

std::size_t blocksOf(std::size_t count)
{
    return (count + blockSize - 1) / blockSize;
}

/// The end of a list grows by the addresses of fresh records, which are still raw memory.
template <typename Record>
void appendAddresses(std::vector<Record*>& list, std::vector<std::span<Record>> const& runs)
{
    for (std::span<Record> const run : runs)
        for (Record& place : run)
            list.push_back(&place);
}

/// Hands out the places of some runs one after the other.
template <typename Record>
class RunCursor
{
public:
    explicit RunCursor(std::vector<std::span<Record>> const& runs) : m_runs(runs) {}

    Record* next()
    {
        while (m_place == m_end) {
            m_place = m_runs[m_run].data();
            m_end = m_place + m_runs[m_run].size();
            ++m_run;
        }
        return m_place++;
    }

private:
    std::vector<std::span<Record>> const& m_runs;
    std::size_t m_run = 0;
    Record* m_place = nullptr;
    Record* m_end = nullptr;
};

}  // namespace

/// What one block of triangles comes to.
struct SideCopies::TriangleBlock
{
    std::array<std::vector<std::span<Triangle>>, 2> runs;
    std::vector<Triangle const*> meeting;
};

SideCopies::SideCopies(UMesh<float> const& source, CutPlane const& plane,
                       std::function<void(int)> const& progress)
    : m_source(source), m_plane(plane), m_progress(progress), m_place(source.vertices)
{
    classify();
}

/// Runs `work(block, begin, end)` over all blocks of `count` records.
void SideCopies::forBlocks(
    std::size_t count, int percentBegin, int percentEnd,
    std::function<void(std::size_t, std::size_t, std::size_t)> const& work) const
{
    std::size_t const blocks = blocksOf(count);
    auto const caller = std::this_thread::get_id();
    auto const run = [&](std::size_t block) {
        if (m_progress && std::this_thread::get_id() == caller)
            m_progress(percentBegin + int(block * std::size_t(percentEnd - percentBegin) / blocks));
        work(block, block * blockSize, std::min(count, (block + 1) * blockSize));
    };
    if (blocks == 1)
        return run(0);
    tbb::parallel_for(tbb::blocked_range<std::size_t>(0, blocks, 1),
                      [&](tbb::blocked_range<std::size_t> const& range) {
                          for (std::size_t block = range.begin(); block < range.end(); ++block)
                              run(block);
                      });
}

void SideCopies::classify()
{
    m_sides.resize(m_source.vertices.size());
    forBlocks(m_sides.size(), 0, 10, [&](std::size_t, std::size_t begin, std::size_t end) {
        for (std::size_t v = begin; v < end; ++v)
            m_sides[v] = std::int8_t(m_plane.sideOf(m_source.vertices[v]->cP()));
    });
    count();
}

void SideCopies::count()
{
    m_counts = {};
    m_blockCounts.assign(blocksOf(m_sides.size()), {});
    for (std::size_t block = 0; block < m_blockCounts.size(); ++block) {
        std::size_t const end = std::min(m_sides.size(), (block + 1) * blockSize);
        std::uint32_t above = 0;
        std::uint32_t below = 0;
        for (std::size_t v = block * blockSize; v < end; ++v) {
            above += m_sides[v] > 0;
            below += m_sides[v] < 0;
        }
        m_blockCounts[block] = {above, below};
        m_counts[sideAbove] += above;
        m_counts[sideBelow] += below;
    }
}

void SideCopies::copy()
{
    count();
    m_meeting.clear();
    m_meshes = {std::make_unique<UMesh<float>>(), std::make_unique<UMesh<float>>()};
    copyVertices();
    copyTriangles();
}

void SideCopies::copyVertices()
{
    for (std::size_t side = 0; side < 2; ++side) {
        m_meshes[side]->vertices.reserve(m_counts[side] + m_counts[side] / 16);
        appendAddresses(m_meshes[side]->vertices,
                        RecordSlabs::allocateRuns<Vertex>(m_counts[side]));
    }
    std::vector<std::array<std::size_t, 2>> starts(m_blockCounts.size() + 1);
    for (std::size_t block = 0; block < m_blockCounts.size(); ++block)
        for (std::size_t side = 0; side < 2; ++side)
            starts[block + 1][side] = starts[block][side] + m_blockCounts[block][side];
    m_copies.assign(m_sides.size(), nullptr);
    // A cancel may leave raw memory in the lists; freeing it does not look at it.
    forBlocks(m_sides.size(), 10, 20, [&](std::size_t block, std::size_t begin, std::size_t end) {
        std::array<std::size_t, 2> place = starts[block];
        for (std::size_t v = begin; v < end; ++v) {
            if (m_sides[v] == 0)
                continue;
            std::size_t const side = m_sides[v] > 0 ? sideAbove : sideBelow;
            Vertex* const raw = m_meshes[side]->vertices[place[side]];
            m_copies[v] = new (raw) Vertex(m_source.vertices[v]->cP());
            m_copies[v]->ID() = place[side]++;
        }
    });
}

void SideCopies::copyTriangles()
{
    std::vector<TriangleBlock> blocks(blocksOf(m_source.triangles.size()));
    try {
        forBlocks(m_source.triangles.size(), 20, 60,
                  [&](std::size_t block, std::size_t begin, std::size_t end) {
                      copyBlock(begin, end, blocks[block]);
                  });
    } catch (...) {
        collect(blocks);
        throw;
    }
    collect(blocks);
}

void SideCopies::copyBlock(std::size_t begin, std::size_t end, TriangleBlock& block) const
{
    // First the sides, so that the block's records can be had in one piece; then the copies, while
    // the block is still in the cache.
    std::array<std::uint32_t, blockSize * 3> corners;
    std::array<std::int8_t, blockSize> sides;
    std::array<std::size_t, 2> counts{};
    for (std::size_t t = begin; t < end; ++t) {
        Triangle const* const triangle = m_source.triangles[t];
        std::uint32_t* const places = &corners[(t - begin) * 3];
        for (int i = 0; i < 3; ++i)
            places[i] = m_place(triangle->cV(i));
        int const first = m_sides[places[0]];
        bool const isWhole =
            first != 0 && m_sides[places[1]] == first && m_sides[places[2]] == first;
        sides[t - begin] = std::int8_t(isWhole ? first : 0);
        counts[sideAbove] += isWhole && first > 0;
        counts[sideBelow] += isWhole && first < 0;
        if (!isWhole)
            block.meeting.push_back(triangle);
    }
    for (std::size_t side = 0; side < 2; ++side)
        block.runs[side] = RecordSlabs::allocateRuns<Triangle>(counts[side]);
    std::array<RunCursor<Triangle>, 2> cursors{RunCursor(block.runs[0]), RunCursor(block.runs[1])};
    for (std::size_t t = begin; t < end; ++t) {
        int const side = sides[t - begin];
        if (side == 0)
            continue;
        std::uint32_t const* const places = &corners[(t - begin) * 3];
        new (cursors[side > 0 ? sideAbove : sideBelow].next())
            Triangle(m_copies[places[0]], m_copies[places[1]], m_copies[places[2]],
                     m_source.triangles[t]->cN());
    }
}

void SideCopies::collect(std::vector<TriangleBlock> const& blocks)
{
    for (std::size_t side = 0; side < 2; ++side) {
        std::size_t count = 0;
        for (TriangleBlock const& block : blocks)
            for (auto const& run : block.runs[side])
                count += run.size();
        m_meshes[side]->triangles.reserve(count + count / 16);
        for (TriangleBlock const& block : blocks)
            appendAddresses(m_meshes[side]->triangles, block.runs[side]);
    }
    for (TriangleBlock const& block : blocks)
        m_meeting.insert(m_meeting.end(), block.meeting.begin(), block.meeting.end());
}
