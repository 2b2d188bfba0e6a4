// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

namespace Freecut {

/// The axes of a polygon's edge, in the world. Teeth grow towards perp.
struct EdgeFrame
{
    EdgeFrame(UPoint3<float> const& from, UPoint3<float> const& to,
              UVector3<float> const& extrudeVector, bool isFlipped)
        : a(from),
          b(to),
          normal(extrudeVector),
          dir((to - from).Normalize()),
          perp((isFlipped ? dir * extrudeVector : extrudeVector * dir).Normalize()),
          length((to - from).GetLength()),
          flip(isFlipped)
    {}

    UPoint3<float> a;
    UPoint3<float> b;
    UVector3<float> normal;
    UVector3<float> dir;
    UVector3<float> perp;
    float length;
    bool flip;
};

/// A way without what leads out of the drawing plane, whose normal need not have unit length.
inline UVector3<float> alongPlane(UVector3<float> const& way, UVector3<float> normal)
{
    normal.Normalize();
    return way - normal * (way | normal);
}

}  // namespace Freecut
