// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/ViewPlane.h"

ViewPlane planeThrough(UPoint3<float> const& point, UVector3<float> const& normal)
{
    ViewPlane plane{{normal.X(), normal.Y(), normal.Z()}, 0};
    plane.offset = plane.heightOf(point);
    return plane;
}

ViewPlane placedBack(ViewPlane const& plane, UMatrix4<float> const& matrix)
{
    auto const along = [&](int column) {
        return plane.normal |
               UVector3<double>(matrix(0, column), matrix(1, column), matrix(2, column));
    };
    return {{along(0), along(1), along(2)}, plane.offset - along(3)};
}
