// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <cstdint>
#include <vector>

/// Removes triangles without area and fills every hole with the triangulation of least area.
/// Points stay as they are and none is added.
///
/// mesh     oriented consistently, without vertices that hold two fans
/// returns  whether the mesh was changed; false as well where it could not be mended
/// throws   what the progress function throws; the mesh is then as it was
bool closeSurface(MeshArrays& mesh, StageProgress& progress);

/// Replaces small regions in which a shell crosses itself. Crossings of different shells are no
/// defect of their surfaces and stay.
///
/// mesh        as closeSurface leaves it
/// isInvolved  per triangle: 1 if it crosses another
/// shellOf     per triangle: the shell it belongs to
/// returns     whether the mesh was changed; holes may be left
/// throws      what the progress function throws; the mesh is then as it was
bool removeLocalCrossings(MeshArrays& mesh, std::vector<std::uint8_t> const& isInvolved,
                          std::vector<std::uint32_t> const& shellOf, StageProgress& progress);
