// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/CuboidProperty.h"

#include "platform/view/GLView.h"

namespace Freecut {

void CuboidProperty::storeEyePoints()
{
    Base::GLView const* const view = eyeView();
    if (view && isContainedIn("Freecut::CuboidGraphicObject"))
        eyeKeyPoints = eyeImages(*view, keyPoints);
}

void CuboidProperty::setCuboidParameters(bool newClearanceEnabled, int newClearanceDirection,
                                         float newClearance, bool newCutTillEnabled,
                                         float newCutTillValue, unsigned newFillAlpha,
                                         bool newRoundCorners, float newCornerRadius,
                                         bool newShowCoordinate, int newViewIndex,
                                         float newCuboidWidth, float newCuboidLength,
                                         float newCuboidAngle)
{
    setCommonParameters(newClearanceEnabled, newClearanceDirection, newClearance, newCutTillEnabled,
                        newCutTillValue, newFillAlpha, newShowCoordinate, newViewIndex);
    roundCorners = newRoundCorners;
    cornerRadius = newCornerRadius;
    cuboidWidth = newCuboidWidth;
    cuboidLength = newCuboidLength;
    cuboidAngle = newCuboidAngle;
    updateDepth();
    updateGeometryOf("Freecut::CuboidGraphicObject");
}

}  // namespace Freecut
