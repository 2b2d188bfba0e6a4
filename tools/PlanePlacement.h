// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <memory>

namespace Freecut {

class PlaneGraphicObject;
class PlaneProperty;

/// The directions of a cut plane's sides. The plane faces along first x second.
struct PlaneAxes
{
    UVector3<float> first;
    UVector3<float> second;
};

/// Extents of a cut plane in millimetres.
struct PlaneSize
{
    /// Along the second axis.
    float width;
    /// Along the first axis.
    float height;
};

/// A unit vector at a right angle to a normal, which needs no unit length. It lies in the XZ plane
/// unless the normal hardly has an x component.
UVector3<float> perpendicularTo(UVector3<float> const& normal);

/// The axes of a plane that lies on a surface: perpendicularTo(normal), and the normal crossed with
/// it.
///
/// normal  a unit vector, which the plane then faces along
PlaneAxes tangentAxes(UVector3<float> const& normal);

/// Makes a plane the rectangle of that size about a centre, without a signal: corners first, then
/// key points.
void placePlane(PlaneProperty& plane, UPoint3<float> const& center, PlaneAxes const& axes,
                PlaneSize const& size);

/// A new plane, in no document, by centre and unit normal with the tangent axes.
std::unique_ptr<PlaneGraphicObject> makeTangentPlane(UPoint3<float> const& center,
                                                     UVector3<float> const& normal,
                                                     PlaneSize const& size);

}  // namespace Freecut
