// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/CurveNetwork.h"
#include "host/services/boolean/ToolGrid.h"

#include <optional>

/// All pairs of triangles, one of either operand, that have a point in common or lie in one plane
/// and may, in the order of the first triangle and then the second. Works on all cores.
///
/// grid     that of the second operand
/// most     so many pairs are still worth the memory that they will take
/// returns  nothing if there are more
/// cost     50 to 100 ns per triangle of the first operand, about as much per pair whose boxes
///          overlap, and memory for the pairs and a number per triangle of the first
std::optional<std::vector<TrianglePair>> findContacts(OperandSoup const& soup, ToolGrid const& grid,
                                                      std::size_t most, StageProgress& progress);
