// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/exact/SectionTriangulation.h"
#include "host/services/prisms/PrismsAtPlane.h"

#include <functional>
#include <vector>

/// The face that a plane cut has made, filled anew around the outlines of prisms.
///
/// Why the result is sound. The new triangles of the face all run anticlockwise in the plane's
/// coordinates, and their edges balance with those of the triangles that go and with the outlines.
/// So they cover exactly what went less what lies within the outlines, which therefore lie within
/// the face and apart from each other. On a plane along two axes the face lies in the plane and
/// walls stand right above outlines, so that nothing can cross. On any other plane points lie up to
/// a unit of the last place beside it. There, nothing may be narrower than a few units but triangles
/// that were there before: as triangles fill both sides of each outline, no point is then that near
/// to an edge of an outline which it does not belong to, nor an outline's point to any other edge,
/// and rounding cannot have laid one across the other.
class FaceChange
{
public:
    using Corners = MeshArrays::Corners;

    /// half  only read
    FaceChange(UMesh<float> const& half, CutPlane const& plane) : m_half(half), m_plane(plane) {}

    /// Finds the face: the triangles at the end of the list that lie in the plane.
    /// returns  +1 if it faces along the plane's normal, -1 if against it, 0 if there is none
    int findFace();

    /// Works the change out.
    ///
    /// near      tells for a triangle of the face whether it must go
    /// isRaised  whether prisms stand on the face; otherwise they are taken out
    /// returns   whether it is certain to be sound
    bool prepare(PrismsAtPlane const& prisms, bool isRaised,
                 std::function<bool(UTriangle<float> const&)> const& near,
                 std::function<void(int)> const& progress);

    /// Carries it out in the half, of which nothing has changed since.
    void write(UMesh<float>& half, PrismsAtPlane const& prisms) const;

private:
    bool isInPlane(UTriangle<float> const& triangle) const;
    bool takeOut(std::function<bool(UTriangle<float> const&)> const& near);
    bool fill(PrismsAtPlane const& prisms, bool isRaised, std::function<void(int)> const& progress);
    bool isFillingSound(std::vector<Exact::SectionSegment> const& segments) const;
    bool wasThere(Corners const& filled) const;
    bool arePrismsSound(PrismsAtPlane const& prisms) const;
    bool isNarrow(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c) const;

    UMesh<float> const& m_half;
    CutPlane const& m_plane;
    std::size_t m_firstOfFace = 0;
    int m_facing = 0;
    bool m_isRaised = true;
    /// Places in the list of triangles, ascending.
    std::vector<std::size_t> m_gone;
    /// Their vertices, both in ascending order.
    std::vector<std::array<std::uint32_t, 3>> m_goneCorners;
    /// Vertices of the half around what goes, ascending, and the edges there as what goes has them.
    std::vector<std::uint32_t> m_border;
    std::vector<std::array<std::uint32_t, 2>> m_borderEdges;
    /// Of points of the border, then of the outlines; anticlockwise seen along the normal.
    std::vector<Corners> m_filling;
    std::vector<UPoint3<float>> m_points;
};
