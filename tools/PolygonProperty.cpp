// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/PolygonProperty.h"

#include "platform/view/GLView.h"

namespace Freecut {

void PolygonProperty::setShapeParameters(bool newClearanceEnabled, int newClearanceDirection,
                                         float newClearance, bool newCutTillEnabled,
                                         float newCutTillValue, unsigned newFillAlpha,
                                         bool newRoundCorners, float newCornerRadius,
                                         bool newShowCoordinate, int newViewIndex)
{
    setCommonParameters(newClearanceEnabled, newClearanceDirection, newClearance, newCutTillEnabled,
                        newCutTillValue, newFillAlpha, newShowCoordinate, newViewIndex);
    roundCorners = newRoundCorners;
    cornerRadius = newCornerRadius;
    updateDepth();
    updateGeometryOf("Freecut::PolygonGraphicObject");
}

void PolygonProperty::clearEdit()
{
    for (TeethEdge& edge : edgeRecords) {
        if (!edge.hasTeeth)
            continue;
        edge.basePoints.clear();
        edge.handlePoints.clear();
        edge.editing = false;
        edge.hasTeeth = edge.applied;
    }
}

void PolygonProperty::storeEyeTeeth()
{
    Base::GLView const* const view = eyeView();
    if (!view || !isContainedIn("Freecut::PolygonGraphicObject"))
        return;
    auto const imagesOf = [&](std::vector<UPoint3<float>> TeethEdge::*points) {
        PointLists lists;
        for (TeethEdge const& edge : edgeRecords)
            lists.push_back(eyeImages(*view, edge.*points));
        return lists;
    };
    eyeBasePoints = imagesOf(&TeethEdge::basePoints);
    eyeHandlePoints = imagesOf(&TeethEdge::handlePoints);
    eyeTeethPoints = imagesOf(&TeethEdge::teethPoints);
    eyeAppliedPoints = imagesOf(&TeethEdge::appliedPoints);
}

}  // namespace Freecut
