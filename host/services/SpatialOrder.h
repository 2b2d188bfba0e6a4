// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <cstdint>
#include <vector>

/// Triangles longer than this part of the whole are long: among short ones they would make the boxes
/// of their neighbours as long as they are.
inline constexpr double shareOfLong = 1.0 / 64;

/// The triangles that are not left out, ordered so that neighbours in the list lie close together:
/// along a space-filling curve through the centres of their boxes (G. M. Morton, 1966), finer where
/// they crowd; where that leaves a tie, by index. Long triangles come after all others, in the same order among themselves.
///
/// isLeftOut  per triangle: 1 for those that do not occur in the result
std::vector<std::uint32_t> spatialOrder(MeshArrays const& mesh,
                                        std::vector<std::uint8_t> const& isLeftOut);
