// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/ToolLimits.h"
#include "tools/VolumeProperty.h"

namespace Freecut {

/// The parameters of a cylinder tool.
///
/// Key points: 0 the centre, 1 the handle of the notch, which counts while there is one.
class CylinderProperty : public VolumeProperty
{
public:
    void storeEyePoints() override;
    /// The centre and the handle.
    std::vector<UPoint3<float>> getEyePoints() const override;

    /// Stores the values; depth and shown geometry follow.
    virtual void setShapeParameters(bool clearanceEnabled, int clearanceDirection, float clearance,
                                    bool cutTillEnabled, float cutTillValue, unsigned fillAlpha,
                                    bool showCoordinate, int viewIndex, float radius, bool useNotch,
                                    float notchWidth, float notchLength, float notchAngle,
                                    float circleTolerance);

    /// Eye-space copies of the key points.
    UPoint3<float> const& getEyeCenter() const { return eyeCenter; }
    void setEyeCenter(UPoint3<float> const& value) { eyeCenter = value; }
    UPoint3<float> const& getEyeRim() const { return eyeRim; }
    void setEyeRim(UPoint3<float> const& value) { eyeRim = value; }
    /// 0 until a size is given.
    float getRadius() const { return radius; }
    void setRadius(float value) { radius = value; }
    bool getUseNotch() const { return useNotch; }
    void setUseNotch(bool value) { useNotch = value; }
    float getNotchWidth() const { return notchWidth; }
    void setNotchWidth(float value) { notchWidth = value; }
    float getNotchLength() const { return notchLength; }
    void setNotchLength(float value) { notchLength = value; }
    /// Degrees.
    float getNotchAngle() const { return notchAngle; }
    void setNotchAngle(float value) { notchAngle = value; }
    /// The largest distance between an arc and its chord.
    float getCircleTolerance() const { return circleTolerance; }
    void setCircleTolerance(float value) { circleTolerance = value; }

private:
    UPoint3<float> eyeCenter;
    UPoint3<float> eyeRim;
    float radius = 0;
    bool useNotch = false;
    float notchWidth = 2;
    float notchLength = 2;
    float notchAngle = 0;
    float circleTolerance = float(ToolLimits::circleTolerance);
};

}  // namespace Freecut
