// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/SideCopies.h"

#include "host/mesh/RecordSlabs.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

#include <algorithm>
#include <atomic>
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

/// How many records ahead memory is asked for: a record in the list, and what a record points at.
constexpr std::size_t farAhead = 24;
constexpr std::size_t nearAhead = 12;

/// A triangle may lie across two cache lines.
void prefetchRecord(UTriangle<float> const* triangle)
{
    __builtin_prefetch(triangle);
    __builtin_prefetch(reinterpret_cast<char const*>(triangle + 1) - 1);
}

/// Makes a list of the records in the blocks' runs, with room for what the section adds.
template <typename Block, typename Record>
void collectRuns(std::vector<Block> const& blocks, std::size_t side, std::vector<Record*>& list)
{
    std::size_t count = 0;
    for (Block const& block : blocks)
        for (std::span<Record> const run : block.runs[side])
            count += run.size();
    list.reserve(count + count / 16);
    for (Block const& block : blocks)
        appendAddresses(list, block.runs[side]);
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

/// What one block of vertices comes to.
struct SideCopies::VertexBlock
{
    std::array<std::vector<std::span<Vertex>>, 2> runs;
};

/// What one block of triangles comes to.
struct SideCopies::TriangleBlock
{
    std::array<std::vector<std::span<Triangle>>, 2> runs;
    std::vector<Triangle const*> meeting;
};

SideCopies::SideCopies(UMesh<float> const& source, CutPlane const& plane,
                       std::function<void(int)> const& progress)
    : m_source(source), m_plane(plane), m_progress(progress)
{
    copyVertices(false);
}

void SideCopies::moveToPlane(std::vector<std::uint32_t> const& places)
{
    for (std::uint32_t const place : places)
        m_sides[place] = 0;
    m_meeting.clear();
    copyVertices(true);
    copyTriangles();
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

void SideCopies::copyVertices(bool areSidesKnown)
{
    m_meshes = {std::make_unique<UMesh<float>>(), std::make_unique<UMesh<float>>()};
    m_sides.resize(m_source.vertices.size());
    m_copies.resize(m_source.vertices.size());
    std::vector<VertexBlock> blocks(blocksOf(m_source.vertices.size()));
    std::atomic<bool> areIdentifiersValid = true;
    auto const collect = [&] {
        for (std::size_t side = 0; side < 2; ++side)
            collectRuns(blocks, side, m_meshes[side]->vertices);
    };
    try {
        forBlocks(m_source.vertices.size(), 0, 20,
                  [&](std::size_t block, std::size_t begin, std::size_t end) {
                      if (!copyVertexBlock(begin, end, areSidesKnown, blocks[block]))
                          areIdentifiersValid = false;
                  });
    } catch (...) {
        collect();
        throw;
    }
    collect();
    if (!areIdentifiersValid)
        m_place = RecordIndex<Vertex>(m_source.vertices);
}

/// Returns whether the identifiers of the block's vertices are their places.
bool SideCopies::copyVertexBlock(std::size_t begin, std::size_t end, bool areSidesKnown,
                                 VertexBlock& block)
{
    bool areIdentifiersValid = true;
    std::array<std::size_t, 2> counts{};
    for (std::size_t v = begin; v < end; ++v) {
        Vertex const* const vertex = m_source.vertices[v];
        areIdentifiersValid &= vertex->cID() == v;
        if (!areSidesKnown)
            m_sides[v] = std::int8_t(m_plane.sideOf(vertex->cP()));
        counts[sideAbove] += m_sides[v] > 0;
        counts[sideBelow] += m_sides[v] < 0;
    }
    for (std::size_t side = 0; side < 2; ++side)
        block.runs[side] = RecordSlabs::allocateRuns<Vertex>(counts[side]);
    std::array<RunCursor<Vertex>, 2> cursors{RunCursor(block.runs[0]), RunCursor(block.runs[1])};
    for (std::size_t v = begin; v < end; ++v)
        m_copies[v] = m_sides[v] == 0 ? nullptr
                                      : new (cursors[m_sides[v] > 0 ? sideAbove : sideBelow].next())
                                            Vertex(m_source.vertices[v]->cP());
    return areIdentifiersValid;
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
        if (t + farAhead < end)
            prefetchRecord(m_source.triangles[t + farAhead]);
        if (t + nearAhead < end)
            for (int i = 0; i < 3; ++i)
                __builtin_prefetch(m_source.triangles[t + nearAhead]->cV(i));
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
        Triangle* const place = cursors[side > 0 ? sideAbove : sideBelow].next();
        __builtin_prefetch(place + farAhead, 1);
        new (place) Triangle(m_copies[places[0]], m_copies[places[1]], m_copies[places[2]],
                             m_source.triangles[t]->cN());
    }
}

void SideCopies::collect(std::vector<TriangleBlock> const& blocks)
{
    for (std::size_t side = 0; side < 2; ++side)
        collectRuns(blocks, side, m_meshes[side]->triangles);
    for (TriangleBlock const& block : blocks)
        m_meeting.insert(m_meeting.end(), block.meeting.begin(), block.meeting.end());
}
