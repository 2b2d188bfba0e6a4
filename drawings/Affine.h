// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint2.h"

namespace Drawings {

using Point = UPoint2<double>;

/// (x, y) becomes (a x + c y + e, b x + d y + f).
struct Affine
{
    double a = 1, b = 0, c = 0, d = 1, e = 0, f = 0;

    Point operator()(Point const& p) const
    {
        return {a * p.X() + c * p.Y() + e, b * p.X() + d * p.Y() + f};
    }
    /// Of a direction.
    Point turned(Point const& p) const { return {a * p.X() + c * p.Y(), b * p.X() + d * p.Y()}; }

    /// This one after the other.
    Affine after(Affine const& first) const
    {
        return {a * first.a + c * first.b,     b * first.a + d * first.b,
                a * first.c + c * first.d,     b * first.c + d * first.d,
                a * first.e + c * first.f + e, b * first.e + d * first.f + f};
    }
};

}  // namespace Drawings
