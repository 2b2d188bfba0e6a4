// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/mesh/RecordIndex.h"
#include "host/services/StageProgress.h"
#include "host/services/planecut/CutPlane.h"
#include "platform/mesh/UMesh.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

/// The two halves of a plane cut, as places in arrays.
enum CutSide
{
    sideAbove = 0,
    sideBelow = 1,
};

/// The part of a cut that is a copy: every vertex that is not in the plane, and every triangle
/// whose corners all lie strictly on one side, goes to that side's mesh, in the order of the
/// source. The triangles that are left over meet the plane.
///
/// The work is done in blocks of records, in parallel where there are threads; what comes out does
/// not depend on their number. `progress` is called on the calling thread only.
class SideCopies
{
public:
    using Vertex = UVertex<float>;
    using Triangle = UTriangle<float>;
    using Places = std::array<std::uint32_t, 3>;

    /// Finds every vertex's side and copies the vertices.
    SideCopies(UMesh<float> const& source, CutPlane const& plane,
               std::function<void(int)> const& progress);

    /// True if no vertex lies on the given side, so that everything belongs to the other one.
    bool isEmpty(CutSide side) const { return m_meshes[side]->vertices.empty(); }

    /// Copies the triangles.
    void copyTriangles();

    /// Counts the given vertices as in the plane, and makes all copies anew.
    void moveToPlane(std::vector<std::uint32_t> const& places);

    std::uint32_t placeOf(Vertex const* vertex) const { return m_place(vertex); }
    /// +1, -1 or 0 by a vertex's place.
    int sideOf(std::uint32_t place) const { return m_sides[place]; }
    /// The copy of a vertex that is not in the plane for the triangles of one half: on its own
    /// side, or where distribute() has put it; another copy if the half has none.
    Vertex* copyIn(CutSide half, std::uint32_t place)
    {
        bool const isThere = m_halfOfVertex.empty() || m_halfOfVertex[place] == half;
        return isThere ? m_copies[place] : anotherCopy(half, place);
    }

    /// The triangles that meet the plane, in list order.
    std::vector<Triangle const*> const& meeting() const { return m_meeting; }
    /// The places of the corners of every triangle that was copied, in the order of the source.
    std::vector<Places> copiedTriangles(StageProgress& progress) const;
    /// Moves every copied triangle, in the order of the source, to the given half, and its vertices
    /// with it; one at triangles of both halves is then there twice. Vertices at no copied triangle
    /// go to the half given for their place. To be called before anything is added to the meshes.
    /// Nothing has changed if `progress` throws.
    void distribute(std::vector<CutSide> const& halfOfTriangle, std::vector<CutSide> halfOfVertex,
                    StageProgress& progress);

    UMesh<float>& mesh(CutSide side) { return *m_meshes[side]; }
    std::unique_ptr<UMesh<float>> takeMesh(CutSide side) { return std::move(m_meshes[side]); }

private:
    struct Stocks;
    struct VertexBlock;
    struct TriangleBlock;
    struct Stray;

    void copyVertices(bool areSidesKnown);
    bool copyVertexBlock(std::size_t begin, std::size_t end, bool areSidesKnown, Stocks& stocks,
                         VertexBlock& block);
    void copyTriangleBlock(std::size_t begin, std::size_t end, Stocks& stocks,
                           TriangleBlock& block) const;
    std::array<std::vector<Triangle*>, 2> triangleLists(std::vector<Places> const& places,
                                                        std::vector<CutSide> const& halfOfTriangle,
                                                        std::vector<CutSide> const& halfOfVertex,
                                                        std::vector<Stray>& strays,
                                                        StageProgress& progress) const;
    Vertex* anotherCopy(CutSide half, std::uint32_t place);
    void collect(std::vector<TriangleBlock> const& blocks);
    template <typename Work>
    void forBlocks(std::size_t count, int percentBegin, int percentEnd, Work const& work) const;

    UMesh<float> const& m_source;
    CutPlane const& m_plane;
    std::function<void(int)> const& m_progress;
    RecordIndex<Vertex> m_place;
    std::vector<std::int8_t> m_sides;
    std::vector<Vertex*> m_copies;
    std::vector<Triangle const*> m_meeting;
    std::vector<CutSide> m_halfOfVertex;
    std::unordered_map<std::uint32_t, Vertex*> m_otherCopies;
    std::array<std::unique_ptr<UMesh<float>>, 2> m_meshes;
};
