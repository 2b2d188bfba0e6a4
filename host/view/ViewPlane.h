// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UMatrix4.h"
#include "platform/geometry/UPoint3.h"

/// The plane of all points p with normal | p = offset. The normal need not be a unit vector.
struct ViewPlane
{
    UVector3<double> normal;
    double offset = 0;

    /// Above 0 on the side that the normal points to, in lengths of the normal.
    double heightOf(UPoint3<float> const& p) const
    {
        return normal.X() * p.X() + normal.Y() * p.Y() + normal.Z() * p.Z() - offset;
    }

    bool operator==(ViewPlane const&) const = default;
};

ViewPlane planeThrough(UPoint3<float> const& point, UVector3<float> const& normal);

/// A plane as seen by what a matrix places: a point has the height there that its image has here.
ViewPlane placedBack(ViewPlane const& plane, UMatrix4<float> const& matrix);
