// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

/// What holds of two triangles wherever one point of a mesh is moved within a reach, told once for
/// all the places that are tried. Triangles at common points, which no distance tells apart, are
/// told too. Points count by their numbers: others at the same place stay where they are.
///
/// tolerance  rounding of doubles: what is told holds for the exact places, and what is in doubt is
///            not told
/// cost       a tenth of a microsecond for a pair
class MeetingInReach
{
public:
    using Index = std::uint32_t;

    /// moved  the point; a corner of at least one of the triangles that are asked about
    /// reach  of its moves, in units of the mesh
    MeetingInReach(MeshArrays const& mesh, Index moved, double reach)
        : m_mesh(mesh), m_moved(moved), m_reach(reach)
    {}

    /// Whether two triangles have nothing in common but the corners and edges that they share, in
    /// the sense of doTrianglesMeet.
    bool isNone(std::size_t t, std::size_t u) const;

    /// Whether an edge of one passes through the inside of the other, and both have an area.
    bool isCertain(std::size_t t, std::size_t u) const;

private:
    using Corners = MeshArrays::Corners;

    int sideOf(Corners const& plane, Index point) const;
    int sideSeenAlong(int axis, Index a, Index b, Index c) const;
    int droppableAxis(Corners const& t) const;
    bool isBesidePlane(Corners const& plane, Corners const& t, std::size_t shared) const;
    bool doesEdgePart(Corners const& t, Corners const& u, std::size_t shared, int axis) const;
    bool areParted(Corners const& t, Corners const& u, std::size_t shared) const;
    bool doesEdgePass(Corners const& edges, Corners const& through, std::size_t shared) const;

    MeshArrays const& m_mesh;
    Index m_moved;
    double m_reach;
};
