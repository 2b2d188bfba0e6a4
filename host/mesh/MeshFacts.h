// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <cstddef>

/// What can be said of a mesh as a solid, in world millimetres, the kernel's matrix applied.
struct MeshFacts
{
    std::size_t triangles = 0;
    std::size_t vertices = 0;
    /// Sets of triangles that hang together over edges.
    std::size_t shells = 0;
    /// Enclosed volume, positive if the triangles face outward. An open mesh counts as closed by
    /// cones to the origin, which is right for holes in the planes of the axes only.
    double volume = 0;
    double area = 0;
    /// Edges that join an odd number of triangles.
    std::size_t openEdges = 0;
    /// Whether the surface has no border: there are no open edges, and at least one triangle.
    bool closed = false;
    UBox3<float> box;
};

/// Measures a mesh, all sums in double.
///
/// thread  any; the kernel is only read
/// cost    linear in the triangles; about as long as two passes over the records
MeshFacts measureMesh(MeshKernel const& kernel);
/// The same for a mesh under a placement of the caller's.
MeshFacts measureMesh(UMesh<float> const& mesh, UMatrix4<float> const& placement);
