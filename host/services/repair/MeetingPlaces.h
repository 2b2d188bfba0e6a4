// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "host/services/TriangleTree.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

/// Points close to the curves along which some triangles cross a mesh: in each of the four wedges
/// between the two surfaces. A sliver that several surfaces enclose together ends at such curves,
/// however small it is beside the triangles; points near their middles miss it.
///
/// mesh, tree  of each other
/// part        the triangles; those that also belong to the mesh do no harm
/// unit        the last place of the largest coordinate; no point is nearer to either surface than
///             some of them, unless the two are nearly in one plane
/// most        of so many of the part's triangles and so many pairs at most, evenly chosen
/// cost        in proportion to these and the triangles in their boxes
std::vector<std::array<double, 3>> placesWhereTheyMeet(MeshArrays const& mesh,
                                                       TriangleTree const& tree,
                                                       MeshArrays const& part, double unit,
                                                       std::size_t most, StageProgress& progress);

/// The triangles whose boxes overlap another; so many of them at most, evenly chosen.
///
/// cost  in proportion to these, without the limit
std::vector<std::uint32_t> trianglesIn(TriangleTree const& tree, TriangleTree::Box const& box,
                                       std::size_t most);
