// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/StageProgress.h"
#include "host/services/TopologyCheck.h"

#include <vector>

/// What a search for crossings needs to know of a mesh of which some triangles are asked about:
/// which triangles have no area, and which of the vertices of those asked about are spread. All
/// other vertices count as not spread, all triangles as one shell, and nothing is told of edges.
///
/// asked  by triangle
TopologyReport starsOfAsked(MeshArrays const& mesh, std::vector<bool> const& asked,
                            StageProgress& progress);
