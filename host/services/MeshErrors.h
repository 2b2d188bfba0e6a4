// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/SelfIntersections.h"
#include "host/services/TopologyCheck.h"
#include "platform/services/Repair.h"

#include <cstdint>
#include <memory>
#include <vector>

/// What is wrong with a mesh, and where.
struct MeshErrors
{
    Repair::EvaluateErrors::Counts counts;
    TopologyReport topology;
    /// Empty where intersections were not asked for and nothing else needed them.
    IntersectionReport intersections;
    /// Per shell: 1 if its orientation contradicts its nesting.
    std::vector<std::uint8_t> isMisoriented;
    /// Of the mesh; null where nothing has needed it.
    std::shared_ptr<TriangleTree const> tree;
};

/// Finds the errors of the given kinds; the counts of the others stay 0.
///
/// kinds     a combination of Repair::EvaluateErrors::ErrorType
/// progress  gets stages within the percentages from `from` to 100
/// throws    what the progress function throws
MeshErrors findErrors(MeshArrays const& mesh, unsigned kinds, StageProgress& progress, int from);
