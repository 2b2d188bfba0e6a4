// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "platform/services/Repair.h"

#include <cstdint>
#include <vector>

/// An edge at which a surface does not go on as one.
struct EdgeFlaw
{
    /// Flaw::crowdedEdge or Flaw::inconsistentEdge.
    Repair::Flaw flaw;
    /// The middle of the edge.
    MeshArrays::Point place;
    std::vector<std::uint32_t> triangles;
};

/// All such edges, those of triangles that use a vertex twice left out.
std::vector<EdgeFlaw> edgeFlaws(MeshArrays const& mesh, StageProgress& progress);

/// Enters them as left.
///
/// areOneSided  whether surfaces with one side only are why triangles disagree
void noteLeft(Repair::Report& report, std::vector<EdgeFlaw> const& flaws, bool areOneSided);
