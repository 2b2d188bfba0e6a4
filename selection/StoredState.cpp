// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/StoredState.h"

#include "platform/view/GLView.h"
#include "tools/VolumeProperty.h"

#include <numeric>

namespace Freecut {

namespace {

/// How many key points the object has.
std::size_t keyPointsOf(StoredTool const& tool)
{
    switch (tool.kind) {
        case StoredTool::Kind::Cylinder:
            return 2;
        case StoredTool::Kind::Cuboid:
            return 4;
        default:
            return tool.points.size();
    }
}

}  // namespace

ToolState stateOf(StoredTool stored, ToolState now, Base::GLView const& view)
{
    VolumeProperty depth;
    depth.setViewIndex(stored.view.standard);
    depth.setCutTillEnabled(stored.values.isCutTillEnabled);
    depth.setCutTillValue(stored.values.cutTill);
    depth.updateDepth();
    stored.settle(*view.getCamera(), depth);

    if (now.points.empty())
        now.pose = poseOf(view);
    now.depthAxis = UVector3<float>(depth.getExtrudeVector()).Normalize();
    now.values = stored.values;
    now.points = stored.points;
    now.points.resize(keyPointsOf(stored));
    now.edges = stored.kind == StoredTool::Kind::Polygon
                    ? std::make_shared<std::vector<TeethEdge> const>(std::move(stored.edges))
                    : nullptr;
    now.numbers.resize(now.edges ? now.points.size() : 0);
    std::iota(now.numbers.begin(), now.numbers.end(), 1);
    now.selected = 0;
    return now;
}

}  // namespace Freecut
