// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/RecordCopies.h"
#include "host/services/boolean/OperandSoup.h"
#include "host/services/boolean/ToolSides.h"

#include <cstdint>
#include <vector>

/// The triangles of a part that are near a tool, with all of the tool's, and what is known of the
/// part's vertices among them.
struct NearSoup
{
    OperandSoup soup;
    /// By vertex of the part in the soup: its place in the part.
    std::vector<std::uint32_t> places;
    /// By the same: the tool's winding number around it, or SideLabels::unknown.
    std::vector<std::int8_t> known;
};

/// copies     of the part, whose triangles that meet the tool's cells are taken
/// partSize   the number of the part's vertices
/// tool       its packed mesh
NearSoup gatherNear(RecordCopies<ToolSides> const& copies, std::size_t partSize,
                    MeshArrays const& tool, StageProgress& progress);
