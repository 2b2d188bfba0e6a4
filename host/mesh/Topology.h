// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/UMesh.h"

#include <functional>

/// True if every triangle has a neighbour at every edge.
bool isFullyLinked(UMesh<float> const& mesh);

/// Pairs the triangles at each edge: the first that runs along it in one direction with the first
/// that runs the other way, and so on; who is left over has a border there. Renumbers the vertices.
///
/// cost  linear: half-edges are put into one bucket per smaller vertex
void linkNeighbours(UMesh<float>& mesh, std::function<void(int)> const& progress);
