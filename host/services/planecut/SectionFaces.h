// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/mesh/DisjointSets.h"
#include "host/services/planecut/SectionWalls.h"

#include <array>
#include <cstdint>
#include <vector>

/// The connected faces of a section. A face is a region of the filling with all its contours, so
/// that a face with a hole is one; faces that touch, if only in a point, are one as well. What
/// touches the plane or crosses it without leaving a filling counts as a face without area.
class SectionFaces
{
public:
    struct Face
    {
        bool hasArea = false;
        /// The plane mesh covers all of it; its border belongs to it.
        bool isWithinPlane = true;
        /// It is a hole in a face whose contours were left out.
        bool isHole = false;
        /// The places of the wall pieces that meet the face, by side.
        std::array<std::vector<std::uint32_t>, 2> pieces;

        bool canBeCut() const { return hasArea && isWithinPlane && !isHole; }
    };

    SectionFaces(SectionPoints const& points, CutPlane const& plane,
                 std::vector<WallPiece> const& pieces, Contours const& contours,
                 Exact::SectionFilling const& filling);

    std::vector<Face> const& faces() const { return m_faces; }
    std::uint32_t faceOf(std::uint32_t point) const { return m_faceOf[point]; }

private:
    void number(DisjointSets& sets, SectionPoints const& points, CutPlane const& plane);

    std::vector<Face> m_faces;
    std::vector<std::uint32_t> m_faceOf;
};
