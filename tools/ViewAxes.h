// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <array>

namespace Freecut {

/// Whether a number is that of one of the six standard views along an axis.
inline bool isAxisView(int viewIndex)
{
    return viewIndex >= 0 && viewIndex < 6;
}

/// The axis along which a standard view looks: Y for 0 and 1, Z for 2 and 3, X for 4 and 5.
inline int axisAlongView(int viewIndex)
{
    constexpr std::array<int, 3> axes = {1, 2, 0};
    return axes[std::size_t(viewIndex / 2)];
}

/// The two axes that a standard view leaves free, in their order; those of a view along Z for a
/// free view.
inline std::array<int, 2> axesAcrossView(int viewIndex)
{
    switch (isAxisView(viewIndex) ? axisAlongView(viewIndex) : 2) {
        case 0:
            return {1, 2};
        case 1:
            return {0, 2};
        default:
            return {0, 1};
    }
}

/// A point with the coordinates of another one along the axes that the view leaves free.
inline UPoint3<float> movedAcrossView(UPoint3<float> point, UPoint3<float> const& to, int viewIndex)
{
    for (int const axis : axesAcrossView(viewIndex))
        point[axis] = to[axis];
    return point;
}

}  // namespace Freecut
