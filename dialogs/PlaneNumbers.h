// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UBox3.h"
#include "selection/PlaneDrag.h"

#include <QVector4D>

namespace Freecut {

class PlaneProperty;

/// A cut plane as numbers: what a dialog shows of it and makes of what is typed.
namespace PlaneNumbers {

PlaneCorners cornersOf(PlaneProperty const& plane);
UPoint3<float> centerOf(PlaneCorners const& plane);
/// Unit vector, to the side that the plane faces; zero for a plane without area.
UVector3<float> normalOf(PlaneCorners const& plane);

PlaneCorners movedBy(PlaneCorners const& plane, UVector3<float> const& way);
/// Turns a plane about its centre on the shortest way until it faces along a unit vector. The third
/// corner is derived from the first, so that rounding cannot tear the rectangle apart.
PlaneCorners turnedTo(PlaneCorners const& plane, UVector3<float> const& normal);
/// Gives a plane another size about its centre: along c1 - c0, and along c2 - c1.
PlaneCorners resizedTo(PlaneCorners const& plane, float first, float second);

/// Whether two points lie strictly on one side of the plane through a point, so that what stands
/// between them would be left.
bool areOnOneSide(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& point,
                  UVector3<float> const& normal);

/// The plane through a point as a, b, c, d; `normal` is a unit vector.
QVector4D planeThrough(UPoint3<float> const& point, UVector3<float> const& normal);
/// Never negative.
float distancePt2Plane(UPoint3<float> const& point, QVector4D const& plane);

}  // namespace PlaneNumbers

/// How far a plane can travel along its normal through a box, in steps from the negative end.
class PlaneTravel
{
public:
    /// Measures anew. On a side where no corner of the box lies, the nearest one counts as the
    /// farthest.
    ///
    /// normal  a unit vector
    void measure(UBox3<float> const& box, UPoint3<float> const& center,
                 UVector3<float> const& normal);

    /// The corners of the box that lie farthest from the plane on either side.
    UPoint3<float> const& farPlus() const { return m_farPlus; }
    UPoint3<float> const& farMinus() const { return m_farMinus; }

    /// The steps from one end to the other, with two to spare.
    int stepCount(float stepSize) const;
    /// The step at which a plane is.
    int stepOf(QVector4D const& plane, float stepSize) const;

private:
    UPoint3<float> m_farPlus;
    UPoint3<float> m_farMinus;
    float m_plus = 0;
    float m_minus = 0;
};

}  // namespace Freecut
