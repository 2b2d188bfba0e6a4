// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/CameraWatch.h"
#include "tools/RigidMotion.h"
#include "tools/SolidValues.h"
#include "tools/TeethEdge.h"
#include "tools/TeethParas.h"

#include <memory>
#include <vector>

namespace Freecut {

/// All that a person edits of a mouse tool's object, as it was at a time.
struct ToolState
{
    /// The corners of a plane, or the key points of a solid tool; none while there is no tool.
    std::vector<UPoint3<float>> points;
    /// The points picked for a plane that is not there yet.
    std::vector<UPoint3<float>> picks;
    SolidValues values;
    /// Of a polygon; null for others. States share what has not changed between them.
    std::shared_ptr<std::vector<TeethEdge> const> edges;
    /// What was edited beside the tool; null for nothing.
    std::shared_ptr<void const> beside;

    // Goes along, and makes no difference between two states.

    /// The vertices of a polygon in the order in which they were drawn, and the selected one.
    std::vector<int> numbers;
    std::size_t selected = 0;
    TeethParas paras;
    /// Where turns of the view had taken the tool.
    RigidMotion turns;
    /// How the view was looked into.
    CameraPose pose;
    /// Unit vector along which a solid tool goes through the parts; zero for a plane. The place
    /// along it is not the user's.
    UVector3<float> depthAxis;
};

/// How a tool that stays on the screen moves in the world as the view is turned.
RigidMotion turnBetween(CameraPose const& from, CameraPose const& to);

/// The state as it would be now if the view had been turned as far then.
ToolState turnedTo(ToolState state, RigidMotion const& turns);

/// Whether a person would see no difference. Where the view has been turned between the two, points
/// may differ by what rounding makes of it.
bool isSameEdit(ToolState const& a, ToolState const& b);

}  // namespace Freecut
