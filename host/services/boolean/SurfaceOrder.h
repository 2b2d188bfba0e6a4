// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "host/services/TriangleTree.h"

#include <vector>

/// What keeps a part from being a solid although it is not open.
struct SurfaceOrder
{
    /// By triangle: the number of the surface that bounds nothing, from 1, or 0: walls within a
    /// solid that end at its surface, sheets that hang on it, and triangles that lie there twice.
    std::vector<std::uint32_t> surplus;
    /// By triangle: whether it faces the other way than what is around it.
    std::vector<bool> isTurned;

    bool isNone() const;
};

/// Finds surfaces that bound nothing or face the wrong way.
///
/// Own derivation. At an edge where triangles that agree meet in pairs, as many run along it one way
/// as the other. Where that is not so, one of the surfaces that end there is too many, or turned
/// over. One whose leaving, or turning, makes up for all edges at which it ends, and opens none, is
/// it; of several that could be, the one with the smallest area, for what closes a solid around a
/// wall's border is larger than the wall. Where no single one makes up for its edges, several do
/// together of which each betters them.
///
/// part     vertices in one place count as one
/// where    only surfaces whose box overlaps this are taken for such
/// cost     some passes over the part
SurfaceOrder findSurfaceOrder(MeshArrays const& part, TriangleTree::Box const& where,
                              StageProgress& progress);
