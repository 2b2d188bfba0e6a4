// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/BooleanRule.h"
#include "platform/mesh/MeshKernel.h"
#include "platform/services/CombiningNotes.h"
#include "platform/services/SolidSplit.h"

#include <functional>
#include <memory>
#include <span>
#include <vector>

/// One result of a boolean: a new mesh; or none where it is the first operand as it was.
struct BooleanResult
{
    std::unique_ptr<UMesh<float>> mesh;
};

/// What somebody wants to know who looks at a boolean before it is made.
struct BooleanSurvey
{
    /// The lines in which the operands' surfaces meet, as far as the pieces have them, each once.
    ContourLines contours;
};

/// Combines two solids; one result per piece asked for, all from one division of the surfaces, so
/// that they share their new points.
///
/// The stages: the tool, which is the second operand, is laid out in a grid of cells; triangles of
/// the part in cells that the tool does not touch are copied, and their side is that of their cell;
/// the others meet the tool's triangles exactly, are divided along the curves, and every region's
/// side is told by the curves; what the rule of a piece keeps is written. Operands may cross
/// themselves. Where the curves contradict each other all the same, the whole solids are combined
/// by exact arithmetic, which takes its time.
///
/// See docs/decisions/0005-booleans.md.
///
/// part        without a matrix; only read
/// tool        only read; a matrix is applied
/// pieces      what to give; of `united` and `difference` at most one
/// notes       receives what is to be told of the pieces
/// survey      receives what it is for, and what the operands were put in order by is not logged
///             then; may be null
/// throws      as Intersect::boolean
std::vector<BooleanResult> combineSolids(MeshKernel const& part, MeshKernel const& tool,
                                         std::span<BooleanPiece const> pieces,
                                         std::function<void(int)> const& progress,
                                         CombiningNotes& notes, BooleanSurvey* survey = nullptr);
