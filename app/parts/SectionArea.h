// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UMatrix4.h"
#include "platform/geometry/UPoint3.h"
#include "platform/mesh/UMesh.h"

#include <functional>
#include <optional>

/// The area in which a plane goes through a part, in square world millimetres. Layers count by
/// themselves, and cavities are left out, as everywhere in a closed part that faces outward; none
/// where the lines of the cut are not closed, as the part is open there.
///
/// placement  of the mesh in the world
/// normal     of any length but 0
/// isUnwanted asked now and then; the result is none once it says yes
/// thread     any
/// cost       one pass over the triangles
/// source     Green's theorem, over the pieces of line in single triangles
std::optional<double> sectionArea(UMesh<float> const& mesh, UMatrix4<float> const& placement,
                                  UPoint3<double> const& point, UVector3<double> const& normal,
                                  std::function<bool()> const& isUnwanted = {});
