// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/memory/RecordStock.h"
#include "host/services/RecordCopies.h"

#include <tbb/blocked_range.h>
#include <tbb/enumerable_thread_specific.h>
#include <tbb/parallel_for.h>

#include <algorithm>
#include <atomic>
#include <new>
#include <thread>

/// How RecordCopies works: included by the one source file of each sorter, which instantiates it.
namespace RecordCopying {

inline constexpr std::size_t blockSize = 2048;

inline std::size_t blocksOf(std::size_t count)
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
inline constexpr std::size_t farAhead = 24;
inline constexpr std::size_t nearAhead = 12;

/// A triangle may lie across two cache lines.
inline void prefetchRecord(UTriangle<float> const* triangle)
{
    __builtin_prefetch(triangle);
    __builtin_prefetch(reinterpret_cast<char const*>(triangle + 1) - 1);
}

/// Makes a list of the records in the blocks' runs, with room for what the cut adds.
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

/// Has the stocks of both sides note what they hand out for one block.
template <typename Record>
void beginNotes(std::array<RecordStock<Record>, 2>& stocks,
                std::array<std::vector<std::span<Record>>, 2>& runs)
{
    for (std::size_t side = 0; side < 2; ++side)
        stocks[side].beginNotes(runs[side]);
}

template <typename Record>
void endNotes(std::array<RecordStock<Record>, 2>& stocks)
{
    for (RecordStock<Record>& stock : stocks)
        stock.endNotes();
}

constexpr std::size_t sideIndex(int side)
{
    return side > 0 ? sideAbove : sideBelow;
}

/// A place on the given side of the cut; the one that is written to next but some is fetched.
template <typename Record>
Record* takePlace(std::array<RecordStock<Record>, 2>& stocks, int side)
{
    Record* const place = stocks[sideIndex(side)].take();
    __builtin_prefetch(place + farAhead, 1);
    return place;
}

}  // namespace RecordCopying

/// A thread's stocks, by side.
template <typename Sorter>
struct RecordCopies<Sorter>::Stocks
{
    std::array<RecordStock<Vertex>, 2> vertices;
    std::array<RecordStock<Triangle>, 2> triangles;
};

/// What one block of vertices comes to.
template <typename Sorter>
struct RecordCopies<Sorter>::VertexBlock
{
    std::array<std::vector<std::span<Vertex>>, 2> runs;
};

/// What one block of triangles comes to.
template <typename Sorter>
struct RecordCopies<Sorter>::TriangleBlock
{
    std::array<std::vector<std::span<Triangle>>, 2> runs;
    std::array<std::size_t, 2> counts{};
    std::vector<Triangle const*> meeting;
    std::uint64_t edges = 0;
    std::array<std::uint64_t, 2> sideEdges{};
};

template <typename Sorter>
RecordCopies<Sorter>::RecordCopies(UMesh<float> const& source, Sorter const& sorter, Wanted wanted,
                                   std::function<void(int)> const& progress)
    : m_source(source), m_progress(progress), m_sorter(sorter), m_wanted(wanted)
{
    copyVertices();
}

/// Runs `work(stocks, block, begin, end)` over all blocks of `count` records.
template <typename Sorter>
template <typename Work>
void RecordCopies<Sorter>::forBlocks(std::size_t count, int percentBegin, int percentEnd,
                                     Work const& work) const
{
    std::size_t const blocks = RecordCopying::blocksOf(count);
    auto const caller = std::this_thread::get_id();
    tbb::enumerable_thread_specific<Stocks> stocks;
    auto const run = [&](std::size_t block) {
        if (m_progress && std::this_thread::get_id() == caller)
            m_progress(percentBegin + int(block * std::size_t(percentEnd - percentBegin) / blocks));
        work(stocks.local(), block, block * RecordCopying::blockSize,
             std::min(count, (block + 1) * RecordCopying::blockSize));
    };
    if (blocks == 1)
        return run(0);
    tbb::parallel_for(tbb::blocked_range<std::size_t>(0, blocks, 1),
                      [&](tbb::blocked_range<std::size_t> const& range) {
                          for (std::size_t block = range.begin(); block < range.end(); ++block)
                              run(block);
                      });
}

template <typename Sorter>
void RecordCopies<Sorter>::copyVertices()
{
    m_meshes = {std::make_unique<UMesh<float>>(), std::make_unique<UMesh<float>>()};
    m_sides.resize(m_source.vertices.size());
    m_copies.resize(m_source.vertices.size());
    std::vector<VertexBlock> blocks(RecordCopying::blocksOf(m_source.vertices.size()));
    std::atomic<bool> areIdentifiersValid = true;
    auto const collect = [&] {
        for (std::size_t side = 0; side < 2; ++side)
            RecordCopying::collectRuns(blocks, side, m_meshes[side]->vertices);
    };
    try {
        forBlocks(m_source.vertices.size(), 0, 20,
                  [&](Stocks& stocks, std::size_t block, std::size_t begin, std::size_t end) {
                      if (!copyVertexBlock(begin, end, stocks, blocks[block]))
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
template <typename Sorter>
bool RecordCopies<Sorter>::copyVertexBlock(std::size_t begin, std::size_t end, Stocks& stocks,
                                           VertexBlock& block)
{
    bool areIdentifiersValid = true;
    RecordCopying::beginNotes(stocks.vertices, block.runs);
    for (std::size_t v = begin; v < end; ++v) {
        if (v + RecordCopying::farAhead < end)
            __builtin_prefetch(m_source.vertices[v + RecordCopying::farAhead]);
        Vertex const* const vertex = m_source.vertices[v];
        areIdentifiersValid &= vertex->cID() == v;
        m_sides[v] = std::int8_t(m_sorter.sideOf(std::uint32_t(v), vertex->cP()));
        int const side = m_sides[v];
        m_copies[v] = side == 0 || !m_wanted[RecordCopying::sideIndex(side)]
                          ? nullptr
                          : new (RecordCopying::takePlace(stocks.vertices, side))
                                Vertex(vertex->cP());
    }
    RecordCopying::endNotes(stocks.vertices);
    return areIdentifiersValid;
}

template <typename Sorter>
void RecordCopies<Sorter>::copyTriangles()
{
    std::vector<TriangleBlock> blocks(RecordCopying::blocksOf(m_source.triangles.size()));
    try {
        forBlocks(m_source.triangles.size(), 20, 60,
                  [&](Stocks& stocks, std::size_t block, std::size_t begin, std::size_t end) {
                      copyTriangleBlock(begin, end, stocks, blocks[block]);
                  });
    } catch (...) {
        collect(blocks);
        throw;
    }
    collect(blocks);
}

template <typename Sorter>
void RecordCopies<Sorter>::copyTriangleBlock(std::size_t begin, std::size_t end, Stocks& stocks,
                                             TriangleBlock& block) const
{
    RecordCopying::beginNotes(stocks.triangles, block.runs);
    for (std::size_t t = begin; t < end; ++t) {
        if (t + RecordCopying::farAhead < end)
            RecordCopying::prefetchRecord(m_source.triangles[t + RecordCopying::farAhead]);
        if (t + RecordCopying::nearAhead < end)
            for (int i = 0; i < 3; ++i)
                __builtin_prefetch(m_source.triangles[t + RecordCopying::nearAhead]->cV(i));
        Triangle const* const triangle = m_source.triangles[t];
        std::uint32_t const a = m_place(triangle->cV(0));
        std::uint32_t const b = m_place(triangle->cV(1));
        std::uint32_t const c = m_place(triangle->cV(2));
        std::uint64_t const edges = m_sorter.edgesOf(a, b, c);
        block.edges += edges;
        int const side = m_sides[a];
        if (side == 0 || m_sides[b] != side || m_sides[c] != side || !m_sorter.isApart(a, b, c)) {
            block.meeting.push_back(triangle);
            continue;
        }
        ++block.counts[RecordCopying::sideIndex(side)];
        block.sideEdges[RecordCopying::sideIndex(side)] += edges;
        if (!m_wanted[RecordCopying::sideIndex(side)])
            continue;
        new (RecordCopying::takePlace(stocks.triangles, side))
            Triangle(m_copies[a], m_copies[b], m_copies[c], triangle->cN());
    }
    RecordCopying::endNotes(stocks.triangles);
}

template <typename Sorter>
void RecordCopies<Sorter>::collect(std::vector<TriangleBlock> const& blocks)
{
    for (std::size_t side = 0; side < 2; ++side)
        RecordCopying::collectRuns(blocks, side, m_meshes[side]->triangles);
    m_counts = {};
    m_edges = 0;
    m_sideEdges = {};
    std::size_t meeting = m_meeting.size();
    for (TriangleBlock const& block : blocks)
        meeting += block.meeting.size();
    m_meeting.reserve(meeting);
    m_blockEnds.reserve(blocks.size());
    for (TriangleBlock const& block : blocks) {
        m_meeting.insert(m_meeting.end(), block.meeting.begin(), block.meeting.end());
        for (std::size_t side = 0; side < 2; ++side) {
            m_counts[side] += block.counts[side];
            m_sideEdges[side] += block.sideEdges[side];
        }
        m_edges += block.edges;
        std::size_t const end = (m_blockEnds.size() + 1) * RecordCopying::blockSize;
        m_blockEnds.push_back(
            {std::min(m_source.triangles.size(), end), m_counts, m_meeting.size()});
    }
}
