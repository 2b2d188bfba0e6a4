// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <vector>

/// A plane in which a part is flat: all its triangles there that face one way, touching or not.
struct FlatFace
{
    /// Unit vector out of the part, world space.
    UVector3<double> normal;
    /// Square millimetres.
    double area = 0;
    /// Along the normal from the origin of world space.
    double distance = 0;
};

/// The flat faces on which a part can stand: nothing of it lies beyond their planes, except by
/// little. Largest first; those of less than a hundredth of the surface are left out, so that round
/// parts have none.
///
/// kernel  seen as it is placed; only read
/// thread  any
/// cost    one pass over the triangles, and one over the vertices for each large face
std::vector<FlatFace> standingFaces(MeshKernel const& kernel);
