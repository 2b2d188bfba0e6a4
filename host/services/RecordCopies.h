// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/mesh/RecordIndex.h"
#include "platform/mesh/UMesh.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

/// The two sides into which a cut sorts a part, as places in arrays.
enum CutSide
{
    sideAbove = 0,
    sideBelow = 1,
};

/// The part of a cut that is a copy: every vertex that a sorter puts on a side, and every triangle
/// whose corners all lie on one side and that the cut does not meet, goes to that side's mesh, in
/// the order of the source. The triangles that are left over meet the cut.
///
/// The work is done in blocks of records, in parallel where there are threads; what comes out does
/// not depend on their number. `progress` is called on the calling thread only.
///
/// Sorter  has `int sideOf(std::uint32_t place, UPoint3<float> const&) const`, which gives 1 for
///         sideAbove, -1 for sideBelow and 0 for neither, once per vertex and on any thread; and
///         `bool isApart(a, b, c) const` for the places of corners that lie on one side, and
///         `std::uint64_t edgesOf(a, b, c) const`, which is added up over all triangles. Its source
///         file includes RecordCopying.h and instantiates RecordCopies for it
template <typename Sorter>
class RecordCopies
{
public:
    using Vertex = UVertex<float>;
    using Triangle = UTriangle<float>;
    using Wanted = std::array<bool, 2>;

    /// Finds every vertex's side and copies the vertices.
    ///
    /// wanted  the sides whose records are copied; those of the other are only counted
    RecordCopies(UMesh<float> const& source, Sorter const& sorter, Wanted wanted,
                 std::function<void(int)> const& progress);

    /// True if no vertex lies on the given side, so that everything belongs to the other one.
    bool isEmpty(CutSide side) const
    {
        return std::find(m_sides.begin(), m_sides.end(), side == sideAbove ? 1 : -1) ==
               m_sides.end();
    }
    bool isWanted(CutSide side) const { return m_wanted[side]; }

    /// Copies the triangles.
    void copyTriangles();

    std::uint32_t placeOf(Vertex const* vertex) const { return m_place(vertex); }
    /// 1, -1 or 0 by a vertex's place.
    int sideOf(std::uint32_t place) const { return m_sides[place]; }
    /// The copy of a vertex on its own side; null for one on no side, or on one not wanted.
    Vertex* copyOf(std::uint32_t place) const { return m_copies[place]; }

    /// The triangles that meet the cut, in list order.
    std::vector<Triangle const*> const& meeting() const { return m_meeting; }
    /// How many triangles lie apart from the cut on a side.
    std::size_t countOf(CutSide side) const { return m_counts[side]; }
    /// The sum of what the sorter says of the edges of all triangles, modulo 2^64.
    std::uint64_t edgeSum() const { return m_edges; }
    /// The same of those that lie apart from the cut on a side.
    std::uint64_t edgeSum(CutSide side) const { return m_sideEdges[side]; }
    UMesh<float>& mesh(CutSide side) { return *m_meshes[side]; }
    std::unique_ptr<UMesh<float>> takeMesh(CutSide side) { return std::move(m_meshes[side]); }

protected:
    /// What the triangles before some place in the source's list have come to.
    struct BlockEnd
    {
        std::size_t triangles = 0;
        std::array<std::size_t, 2> copied{};
        std::size_t meeting = 0;
    };

    UMesh<float> const& m_source;
    RecordIndex<Vertex> m_place;
    std::vector<std::int8_t> m_sides;
    std::vector<Vertex*> m_copies;
    std::vector<Triangle const*> m_meeting;
    std::array<std::unique_ptr<UMesh<float>>, 2> m_meshes;
    std::array<std::size_t, 2> m_counts{};
    /// In the order of the source; the last one is the whole.
    std::vector<BlockEnd> m_blockEnds;
    std::function<void(int)> const& m_progress;

private:
    struct Stocks;
    struct VertexBlock;
    struct TriangleBlock;

    void copyVertices();
    bool copyVertexBlock(std::size_t begin, std::size_t end, Stocks& stocks, VertexBlock& block);
    void copyTriangleBlock(std::size_t begin, std::size_t end, Stocks& stocks,
                           TriangleBlock& block) const;
    void collect(std::vector<TriangleBlock> const& blocks);
    template <typename Work>
    void forBlocks(std::size_t count, int percentBegin, int percentEnd, Work const& work) const;

    Sorter const& m_sorter;
    Wanted m_wanted;
    std::uint64_t m_edges = 0;
    std::array<std::uint64_t, 2> m_sideEdges{};
};
