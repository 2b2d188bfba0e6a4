// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/BooleanRule.h"
#include "host/services/boolean/ToolTree.h"

#include <optional>

/// Holds results against their operands by exact winding numbers at points on both sides of facets
/// of all three: what is left to ask of a result that was made in no way that excludes mistakes.
class ResultCheck
{
public:
    /// part, tool  triangles that all have an area; must outlive the check
    ResultCheck(MeshArrays const& part, MeshArrays const& tool, StageProgress& progress)
        : m_part(part, progress), m_tool(tool, progress), m_progress(progress)
    {}

    /// A point that shows that a result is another solid than the rule says; none if no point does.
    /// Points at which rounding may decide do not count.
    std::optional<UPoint3<float>> findFault(MeshArrays const& result, BooleanRule rule) const;

private:
    bool acceptsAround(ToolTree const& result, BooleanRule rule, UPoint3<double> const& centre,
                       double reach) const;

    ToolTree m_part;
    ToolTree m_tool;
    StageProgress& m_progress;
};
