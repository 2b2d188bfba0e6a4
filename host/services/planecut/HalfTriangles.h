// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/TriangleTree.h"
#include "host/services/planecut/SectionWalls.h"

#include <array>
#include <functional>
#include <vector>

class PointNumbers;

/// A corner of a triangle of a half: a section point, or else a vertex beside the plane.
struct HalfCorner
{
    std::uint32_t point = WallCorner::none;
    UVertex<float>* vertex = nullptr;

    bool isPoint() const { return point != WallCorner::none; }
    UPoint3<float> placeAmong(SectionPoints const& points) const
    {
        return isPoint() ? points.place(point) : vertex->cP();
    }
};

/// A triangle of one half of a plane cut.
struct HalfTriangle
{
    std::array<HalfCorner, 3> corners;
    /// The triangle that it is a part of; of a cap none.
    UTriangle<float> const* source;
    CutSide side;
    /// Null while it is not written.
    UTriangle<float>* record = nullptr;

    bool isCap() const { return !source; }
};

/// The section closes the half below as it is and the half above turned round.
std::array<std::uint32_t, 3> capCorners(std::array<std::uint32_t, 3> const& triangle, CutSide side);

TriangleTree::Box boxOf(UTriangle<float> const& triangle);
TriangleTree::Box boxOf(HalfTriangle const& triangle, SectionPoints const& points);

/// A triangle with its record, whose vertices at the plane have the given numbers.
HalfTriangle halfTriangleOf(UTriangle<float>* record, UTriangle<float> const* source, CutSide side,
                            PointNumbers const& numbers);

using VisitHalfTriangle = std::function<void(HalfTriangle const&)>;

/// What a cut is about to make, above first, and the walls of each half before its caps. Nothing of
/// it is written.
void visitTrianglesToMake(SectionWalls const& walls, SideCopies const& copies,
                          Exact::SectionFilling const& filling, VisitHalfTriangle const& visit);

/// What a cut has made, in the same order.
///
/// caps  the triangles that close each half
void visitTrianglesMade(SectionWalls const& walls,
                        std::array<std::vector<UTriangle<float>*>, 2> const& caps,
                        PointNumbers const& numbers, VisitHalfTriangle const& visit);
