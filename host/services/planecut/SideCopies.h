// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/RecordCopies.h"
#include "host/services/StageProgress.h"
#include "host/services/planecut/CutPlane.h"

#include <unordered_map>

/// Sorts a part's records by a plane.
class PlaneSides
{
public:
    explicit PlaneSides(CutPlane const& plane) : m_plane(plane) {}

    int sideOf(std::uint32_t, UPoint3<float> const& p) const { return m_plane.sideOf(p); }
    bool isApart(std::uint32_t, std::uint32_t, std::uint32_t) const { return true; }
    std::uint64_t edgesOf(std::uint32_t, std::uint32_t, std::uint32_t) const { return 0; }

private:
    CutPlane const& m_plane;
};

/// The part of a plane cut that is a copy, and what a bounded cut puts elsewhere: every vertex that
/// is not in the plane, and every triangle whose corners all lie strictly on one side.
class SideCopies : private PlaneSides, public RecordCopies<PlaneSides>
{
public:
    using Places = std::array<std::uint32_t, 3>;
    using RecordCopies<PlaneSides>::sideOf;

    /// Finds every vertex's side and copies the vertices of the sides that are wanted.
    SideCopies(UMesh<float> const& source, CutPlane const& plane, Wanted wanted,
               std::function<void(int)> const& progress)
        : PlaneSides(plane),
          RecordCopies<PlaneSides>(source, static_cast<PlaneSides const&>(*this), wanted, progress)
    {}

    /// Counts the given vertices as in the plane: takes their copies back, and those of the triangles
    /// at them, which meet the plane now. After copyTriangles(), before anything is added to the
    /// meshes. Nothing has changed if `progress` throws.
    ///
    /// cost  a look at every triangle, a third of what it costs to copy
    void moveToPlane(std::vector<std::uint32_t> places);

    /// The copy of a vertex that is not in the plane for the triangles of one half: on its own
    /// side, or where distribute() has put it; another copy if the half has none.
    Vertex* copyIn(CutSide half, std::uint32_t place)
    {
        bool const isThere = m_halfOfVertex.empty() || m_halfOfVertex[place] == half;
        return isThere ? m_copies[place] : anotherCopy(half, place);
    }

    /// Where a vertex of the source is.
    UPoint3<float> pointAt(std::uint32_t place) const { return m_source.vertices[place]->cP(); }
    Vertex* sourceOf(std::uint32_t place) const { return m_source.vertices[place]; }

    /// The places of the corners of every triangle that was copied, in the order of the source.
    std::vector<Places> copiedTriangles(StageProgress& progress) const;
    /// Moves every copied triangle, in the order of the source, to the given half, and its vertices
    /// with it; one at triangles of both halves is then there twice. Vertices at no copied triangle
    /// go to the half given for their place. To be called before anything is added to the meshes.
    /// Nothing has changed if `progress` throws. Both sides are wanted.
    void distribute(std::vector<CutSide> const& halfOfTriangle, std::vector<CutSide> halfOfVertex,
                    StageProgress& progress);

private:
    struct Stray;
    struct Taken;

    std::vector<std::uint8_t> blocksAt(std::vector<std::uint32_t> const& places) const;
    void takeTrianglesBack(std::vector<std::uint32_t> const& places,
                           std::vector<std::uint8_t> const& isBlockTouched);
    void takeBlockBack(BlockEnd const& begin, BlockEnd const& end, Taken& taken) const;
    void takeVerticesBack(std::vector<std::uint32_t> const& places);

    std::array<std::vector<Triangle*>, 2> triangleLists(std::vector<Places> const& places,
                                                        std::vector<CutSide> const& halfOfTriangle,
                                                        std::vector<CutSide> const& halfOfVertex,
                                                        std::vector<Stray>& strays,
                                                        StageProgress& progress) const;
    Vertex* anotherCopy(CutSide half, std::uint32_t place);

    std::vector<CutSide> m_halfOfVertex;
    std::unordered_map<std::uint32_t, Vertex*> m_otherCopies;
};
