// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/CurveNetwork.h"
#include "host/services/boolean/ToolTree.h"

#include <vector>

/// The contacts of a mesh's triangles with each other that divide what is around its surface: where
/// triangles cross or lie on each other, and along edges that have more or fewer than two triangles
/// or that two run along the same way, or at which neighbours are folded onto each other. Neighbours
/// that have just their edge in common are no contact. Works on one thread.
///
/// tree      over the mesh, whose triangles all have an area
/// suspects  the triangles that may meet others or be at such an edge
/// folds     whether the edges of neighbours that are folded onto each other count
/// returns   in the order of the triangles, the smaller first
std::vector<TrianglePair> findSelfContacts(ToolTree const& tree,
                                           std::vector<std::uint32_t> const& suspects,
                                           StageProgress& progress, bool folds = true);
