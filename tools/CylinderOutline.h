// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/VolumeOutline.h"

namespace Freecut {

class CylinderProperty;

/// The outlines of a cylinder: a circle around its first key point, from the top of the screen
/// anticlockwise, with a rectangular key if there is a notch. Writes the notch's key point.
class CylinderOutline : public VolumeOutline
{
public:
    /// cylinder  borrowed
    explicit CylinderOutline(CylinderProperty& cylinder);

protected:
    void deriveNominal(SketchPlane const& plane, WorkPoll const& poll) override;

private:
    Ring circle(SketchPlane const& plane) const;
    Ring circleWithKey(SketchPlane const& plane);
    UPoint3<float> rimPoint(SketchPlane const& plane, float angle) const;

    CylinderProperty& m_cylinder;
};

/// Into how many chords an arc is divided that keep within a tolerance of it: 8 at least, 200 at
/// most. A tolerance of the circle's size or more gives 8, none gives 200.
///
/// arc  radians
int arcSections(double arc, float radius, float tolerance);

}  // namespace Freecut
