// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/SelfIntersections.h"
#include "host/services/TopologyCheck.h"
#include "host/services/TriangleTree.h"

#include <cstdint>
#include <vector>

/// Per shell: six times its signed volume, positive if it faces outward. 0 for a shell that is not
/// closed and for one whose volume drowns in rounding.
std::vector<double> shellVolumes(MeshArrays const& mesh, TopologyReport const& topology);

/// Per shell: how many closed shells lie around it. A shell that crosses another, as far as
/// `meeting` tells, does not lie within it; neither does a shell for which rounding leaves that
/// open.
///
/// volumes  as shellVolumes gives them; shells of volume 0 neither contain nor are looked at
/// meeting  pairs of shells that meet, in ascending order
/// cost     one ray through the tree per shell
std::vector<std::uint32_t> shellDepths(
    MeshArrays const& mesh, TopologyReport const& topology, TriangleTree const& tree,
    std::vector<double> const& volumes,
    std::vector<std::pair<std::uint32_t, std::uint32_t>> const& meeting, StageProgress& progress);

/// Per shell: of a cavity, which faces inward within an odd number of others, the innermost shell
/// around it; of any other the shell itself.
///
/// cost  one ray through the tree per cavity, and the depths
std::vector<std::uint32_t> shellCarriers(
    MeshArrays const& mesh, TopologyReport const& topology, TriangleTree const& tree,
    std::vector<double> const& volumes,
    std::vector<std::pair<std::uint32_t, std::uint32_t>> const& meeting, StageProgress& progress);
