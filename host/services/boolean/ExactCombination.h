// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "host/services/StageProgress.h"
#include "host/services/boolean/SolidBoolean.h"

#include <optional>
#include <span>
#include <vector>

/// Combines two solids as wholes, the slow way, for those that cross themselves where they meet: by
/// exact corefinement and, where that goes wrong, by an exact arrangement. Results are mended and
/// held against the operands; throws what Refusal::throwNotCombined() throws if none is right.
///
/// doubtful  a place where other results were seen to be wrong, for the refusal
/// notes     receives the crossings that are left
std::vector<BooleanResult> combineExactly(MeshArrays const& part, MeshArrays const& tool,
                                          std::span<BooleanPiece const> pieces,
                                          std::optional<UPoint3<float>> doubtful,
                                          CombiningNotes& notes, StageProgress& progress);
