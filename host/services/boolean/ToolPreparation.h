// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "host/services/boolean/OperandSoup.h"

/// Throws a sentence if an operand has a coordinate that is no finite number.
///
/// operand  which of the two it is: the part or the tool
void requireFinite(MeshArrays const& mesh, Operand operand);

/// Whether a triangle of some has no area.
bool hasFlatTriangle(MeshArrays const& operand);

/// A tool, the second operand of a boolean, made ready: final coordinates, no triangle without
/// area, and where bodies in it overlap, their union. Convex shells whose boxes lie apart, as those
/// of pins do, are known not to overlap; other triangles are tested.
///
/// throws  Mell::Exception if a coordinate is no number
MeshArrays prepareTool(MeshKernel const& tool, StageProgress& progress);
