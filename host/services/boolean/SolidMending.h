// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <span>
#include <vector>

/// Mends what rounding has done to solids that were combined by exact arithmetic, as RoundingMending
/// does for those of the usual way. Points that solids share move in all of them.
///
/// operands  of the combination; corners of theirs stay where they are
/// solids    closed; what has changed has one point in each place
/// returns   a place of each pair of triangles that still cross, but for those that cross by more
///           than rounding can do: layers of an operand
/// cost      some microseconds for each triangle that no operand has, and what RoundingMending takes
std::vector<UPoint3<float>> mendSolids(std::span<MeshArrays const* const> operands,
                                       std::span<MeshArrays* const> solids,
                                       StageProgress& progress);
