// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

/// The bodies that a mesh consists of, each as a mesh of its own with the matrix of the whole.
///
/// A body is what hangs together over edges: a closed shell that faces outward, with the cavities
/// within it, each with the innermost shell around it. What lies in a cavity is a body by itself,
/// and so is a shell that is open, or faces inward where nothing is around it. Shells that cross
/// each other are bodies apart. Triangles that use a vertex twice belong to none.
///
/// most       more bodies than this are not made; the result is then empty
/// count      receives how many there are, whether they are made or not; may be null
/// returns    in the order of their first triangles; coordinates are those of the records
/// progress   may be empty; what it throws passes
/// thread     any; the kernel is only read
/// cost       as that of a complete check of the mesh
std::vector<std::shared_ptr<MeshKernel>> bodiesOf(MeshKernel const& kernel, std::size_t most,
                                                  std::size_t* count,
                                                  std::function<void(int)> const& progress);
