// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "host/services/TriangleTree.h"
#include "host/services/boolean/OperandSoup.h"

#include <memory>

/// Throws a sentence if an operand has a coordinate that is no finite number.
///
/// operand  which of the two it is: the part or the tool
void requireFinite(MeshArrays const& mesh, Operand operand, StageProgress& progress);

/// Whether a triangle of some has no area.
bool hasFlatTriangle(MeshArrays const& operand, StageProgress& progress);

/// A tool, the second operand of a boolean, made ready.
struct PreparedTool
{
    /// In final coordinates, without triangles that have no area.
    MeshArrays mesh;
    /// Whether it is known to wind once around its inside and nowhere else: convex shells whose
    /// boxes lie apart, as those of pins do. Other tools are looked at more closely.
    bool isSimple = true;
    /// Triangles that meet others of the tool, or have an edge that does not join two that agree.
    std::vector<std::uint32_t> suspects;
    /// A vertex or some of each shell.
    std::vector<std::uint32_t> anchors;
    /// Of all triangles, where one was needed to look for suspects.
    std::unique_ptr<TriangleTree const> tree;
};

/// throws  Mell::Exception if a coordinate is no number
PreparedTool prepareTool(MeshKernel const& tool, StageProgress& progress);
