// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <cstddef>
#include <functional>
#include <vector>

struct FlawSurvey;

namespace Repair {

/// What is wrong at a place, as EvaluateErrors counts it.
enum class FlawKind
{
    OpenEdges,
    CrowdedEdges,
    InconsistentEdges,
    DegenerateTriangle,
    DuplicateTriangle,
    Crossing,
    TurnedShell
};

/// Flaws of one kind that hang together: the edges of a hole, the triangles that cross each other
/// at one place. World millimetres.
struct FlawPlace
{
    FlawKind kind = FlawKind::OpenEdges;
    /// How many edges, triangles or pairs of triangles.
    std::size_t count = 0;
    /// On the surface, at one of them.
    UPoint3<float> point;
    /// Pairs of ends: the edges, the sides of the triangles; of a shell the edges of its box.
    std::vector<UPoint3<float>> lines;
};

/// All places of a mesh that has been checked, by kind in the order of the kinds, and within each in
/// the order of the mesh. Points that are no numbers have no place.
///
/// most  of each kind no more than this. Of triangles that cross, only the first 20,000 are looked at
/// cost  nothing without errors; else one sort of the mesh's edges, and in proportion to the
///       triangles that cross
/// poll  called all the time, once in some milliseconds at least; what it throws passes
std::vector<FlawPlace> placesOf(FlawSurvey const& survey, std::size_t most,
                                std::function<void()> const& poll = {});

}  // namespace Repair
