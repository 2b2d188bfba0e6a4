// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <optional>

/// Booleans of closed meshes by exact constructions on the whole meshes: slow, thorough, and
/// independent of the fast way to the same result.
namespace Exact {

/// Which results of a combination are asked for.
struct WantedSolids
{
    bool united = false;
    bool common = false;
    /// The first less the second.
    bool difference = false;
};

/// Why there is no result.
enum class CombinationFault
{
    none,
    /// An operand has a border, triangles that disagree, or a coordinate that is no number.
    operandNotClosed,
    /// The way taken cannot do with operands that touch or cross themselves there. combine() knows
    /// another.
    operandCrossesItself,
    /// The library gave up, or what came out is not closed.
    resultNotClosed,
};

/// Those results that were wanted; empty arrays where there is nothing left.
struct CombinedSolids
{
    CombinationFault fault = CombinationFault::none;
    std::optional<MeshArrays> united = {};
    std::optional<MeshArrays> common = {};
    std::optional<MeshArrays> difference = {};
};

/// Combines two solids.
///
/// first     closed, outward-facing; any number of shells, one within another, that may touch and
///           cross: the winding number w of the first becomes w outside the second and 0 within it
///           in a difference, the other way round in what is common, and w outside and 1 within in
///           a union
/// second    the same; solid is what has a winding number above zero
/// returns   the solids, or the fault. Where both surfaces touch in an edge, that edge has four
///           triangles. Intersection points are constructed exactly and rounded once to the nearest
///           float; triangles that this makes degenerate and films are removed, so that the result
///           stays closed. All results share these points bit by bit
/// progress  what its function throws leaves through this operation. It is asked between the
///           library's steps on single edges and faces, and in each own loop
/// thread    any
/// cost      some ten microseconds per triangle of both operands
/// source    corefinement (CGAL), with a winding number per patch found by exact rays; where an
///           operand touches or crosses itself, an arrangement of the triangles (own derivation):
///           each triangle is divided along all others by a constrained triangulation
CombinedSolids combine(MeshArrays const& first, MeshArrays const& second, WantedSolids wanted,
                       StageProgress& progress);

}  // namespace Exact
