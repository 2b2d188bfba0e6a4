// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

/// Throws a sentence if an operand has a coordinate that is no finite number.
///
/// name  how to call the operand at the beginning of the sentence
void requireFinite(MeshArrays const& operand, char const* name);

/// Whether a triangle of some has no area.
bool hasFlatTriangle(MeshArrays const& operand);

/// A tool, the second operand of a boolean, made ready: final coordinates, no triangle without
/// area, and where bodies in it overlap, their union. Convex shells whose boxes lie apart, as those
/// of pins do, are known not to overlap; other triangles are tested.
///
/// throws  Mell::Exception if a coordinate is no number
MeshArrays prepareTool(MeshKernel const& tool, StageProgress& progress);
