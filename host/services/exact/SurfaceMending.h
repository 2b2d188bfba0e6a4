// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/repair/MeshRegion.h"

/// Removes triangles without area and fills every hole with the triangulation of least area. The
/// rim of the region is no hole. Points stay as they are and none is added.
///
/// region   oriented consistently, without vertices that hold two fans
/// returns  whether the region was changed; false as well where it could not be mended
/// throws   what the progress function throws; the region is then as it was
bool closeSurface(MeshRegion& region, StageProgress& progress);
