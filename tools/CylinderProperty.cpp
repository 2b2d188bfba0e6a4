// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/CylinderProperty.h"

#include "platform/view/GLView.h"

namespace Freecut {

void CylinderProperty::storeEyePoints()
{
    Base::GLView const* const view = eyeView();
    if (!view || keyPoints.empty() || !isContainedIn("Freecut::CylinderGraphicObject"))
        return;
    std::vector<UPoint3<float>> const images = eyeImages(*view, keyPoints);
    eyeCenter = images[0];
    if (images.size() > 1)
        eyeRim = images[1];
}

std::vector<UPoint3<float>> CylinderProperty::getEyePoints() const
{
    return {eyeCenter, eyeRim};
}

void CylinderProperty::setShapeParameters(bool newClearanceEnabled, int newClearanceDirection,
                                          float newClearance, bool newCutTillEnabled,
                                          float newCutTillValue, unsigned newFillAlpha,
                                          bool newShowCoordinate, int newViewIndex, float newRadius,
                                          bool newUseNotch, float newNotchWidth,
                                          float newNotchLength, float newNotchAngle,
                                          float newCircleTolerance)
{
    setCommonParameters(newClearanceEnabled, newClearanceDirection, newClearance, newCutTillEnabled,
                        newCutTillValue, newFillAlpha, newShowCoordinate, newViewIndex);
    radius = newRadius;
    useNotch = newUseNotch;
    notchWidth = newNotchWidth;
    notchLength = newNotchLength;
    notchAngle = newNotchAngle;
    circleTolerance = newCircleTolerance;
    updateDepth();
    updateGeometryOf("Freecut::CylinderGraphicObject");
}

}  // namespace Freecut
