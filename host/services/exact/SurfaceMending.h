// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshRegion.h"

#include <cstdint>
#include <vector>

/// Removes triangles without area and fills every hole with the triangulation of least area. The
/// rim of the region is no hole. Points stay as they are and none is added.
///
/// region   oriented consistently, without vertices that hold two fans
/// returns  whether the region was changed; false as well where it could not be mended
/// throws   what the progress function throws; the region is then as it was
bool closeSurface(MeshRegion& region, StageProgress& progress);

/// Replaces small pieces of the region in which a shell crosses itself. Crossings of different
/// shells are no defect of their surfaces and stay.
///
/// region   as for closeSurface, without triangles that have no area
/// shellOf  per triangle of the whole mesh: the shell it belongs to
/// returns  whether the region was changed; holes may be left
/// throws   what the progress function throws; the region is then as it was
bool removeLocalCrossings(MeshRegion& region, std::vector<std::uint32_t> const& shellOf,
                          StageProgress& progress);
