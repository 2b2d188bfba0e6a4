// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/UMesh.h"

#include <memory>
#include <vector>

/// A copy of all records, neighbour links included, with identifiers valid.
///
/// cost  one pass over the records at memory speed
std::unique_ptr<UMesh<float>> copyMesh(UMesh<float> const& source);

/// A copy of the selected triangles (one entry per triangle, in list order) and of the vertices
/// they use, in list order, without neighbour links and with identifiers valid.
std::unique_ptr<UMesh<float>> copySelected(UMesh<float> const& source,
                                           std::vector<bool> const& selected);
