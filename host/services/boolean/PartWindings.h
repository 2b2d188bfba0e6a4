// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/StageProgress.h"
#include "host/services/boolean/RayOrigin.h"
#include "platform/mesh/UMesh.h"

#include <optional>
#include <span>
#include <vector>

/// Winding numbers of a part around points.
struct PartWindings
{
    /// Nothing where a point lies on the part, or the line through it tells that it is open.
    std::vector<std::optional<int>> numbers;
    /// Whether a line told so.
    bool isOpen = false;
};

/// By lines along x, in one pass over the part.
PartWindings windingsOfPart(UMesh<float> const& part, std::span<RayOrigin const> points,
                            StageProgress& progress);
