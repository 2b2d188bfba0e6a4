// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/TriangleTree.h"
#include "host/services/planecut/SectionWalls.h"

#include <array>
#include <unordered_set>
#include <vector>

/// A triangle of one half of a plane cut.
struct HalfTriangle
{
    UTriangle<float>* record;
    /// The triangle that it is a part of; of a cap none.
    UTriangle<float> const* source;
    CutSide side;

    bool isCap() const { return !source; }
};

using HalfRecords = std::unordered_set<UTriangle<float> const*>;

TriangleTree::Box boxOf(UTriangle<float> const& triangle);

/// The difference between the largest coordinate of a point and the next float.
double roundingUnitAt(UPoint3<float> const& p);

/// What the cut has made, above first, and the walls of each half before its caps.
///
/// caps  the triangles that close each half
std::vector<HalfTriangle> trianglesMade(SectionWalls const& walls,
                                        std::array<std::vector<UTriangle<float>*>, 2> const& caps);
