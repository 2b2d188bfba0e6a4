// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/VolumeProperty.h"

namespace Freecut {

/// The parameters of a cuboid tool.
///
/// Key points: 0 the centre, 1 half the length from it along the first axis, 2 the corner of both
/// axes, 3 half the width along the second axis.
class CuboidProperty : public VolumeProperty
{
public:
    void storeEyePoints() override;

    /// Stores the values; depth and shown geometry follow.
    void setCuboidParameters(bool clearanceEnabled, int clearanceDirection, float clearance,
                             bool cutTillEnabled, float cutTillValue, unsigned fillAlpha,
                             bool roundCorners, float cornerRadius, bool showCoordinate,
                             int viewIndex, float cuboidWidth, float cuboidLength,
                             float cuboidAngle);

    bool getRoundCorners() const { return roundCorners; }
    void setRoundCorners(bool value) { roundCorners = value; }
    float getCornerRadius() const { return cornerRadius; }
    void setCornerRadius(float value) { cornerRadius = value; }
    /// Extent along the second axis of the rectangle.
    float getCuboidWidth() const { return cuboidWidth; }
    void setCuboidWidth(float value) { cuboidWidth = value; }
    /// Extent along the first axis.
    float getCuboidLength() const { return cuboidLength; }
    void setCuboidLength(float value) { cuboidLength = value; }
    /// Radians.
    float getCuboidAngle() const { return cuboidAngle; }
    void setCuboidAngle(float value) { cuboidAngle = value; }

private:
    bool roundCorners = false;
    float cornerRadius = 0;
    float cuboidWidth = 0;
    float cuboidLength = 0;
    float cuboidAngle = 0;
};

}  // namespace Freecut
