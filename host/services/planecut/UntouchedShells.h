// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "host/services/planecut/SideCopies.h"

#include <cstdint>
#include <optional>
#include <vector>

/// Gives the pieces that no face of the cut touches to a half each: the one on whose side the
/// centroid of the piece's surface lies, above if it lies in the plane. A cavity, that is a piece
/// that faces inward, goes with the smallest solid around it.
///
/// solids       closed as the cut closes them
/// pieceOf      per triangle
/// halfOfPiece  the halves of the other pieces; no half is missing afterwards
/// cost         one pass; where there are cavities, a tree and one ray per cavity
void settleUntouched(MeshArrays const& solids, std::vector<std::uint32_t> const& pieceOf,
                     CutPlane const& plane, std::vector<std::optional<CutSide>>& halfOfPiece,
                     StageProgress& progress);
