// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// For the sources of this folder only: it shows CGAL's types.

#include "host/services/exact/PolledPoints.h"
#include "host/services/repair/MeshRegion.h"

#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Surface_mesh.h>

#include <functional>

using SurfaceKernel = CGAL::Exact_predicates_inexact_constructions_kernel;
using Surface = CGAL::Surface_mesh<SurfaceKernel::Point_3>;

using PolledPoints = PolledPointMap<Surface>;

/// The point of the whole mesh that a vertex of the surface stands for, or none.
std::uint32_t originOf(Surface const& surface, Surface::Vertex_index vertex);

/// Makes a surface of a region, mends it, and takes over the points and triangles that are left, in
/// the surface's order, rounded to float.
///
/// mend     may leave by a standard exception where the library gives up
/// returns  whether the region was changed; false as well where its triangles are no surface: an
///          edge with more than two, a vertex with two fans, neighbours that disagree in
///          orientation
/// throws   what the progress function throws; the region is then as it was
bool mendRegion(MeshRegion& region, StageProgress& progress,
                std::function<void(Surface&)> const& mend);
