// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/ArbitrarySigns.h"

#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>

namespace ExactSigns {
namespace {

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;

Kernel::Point_3 spatial(UPoint3<float> const& p)
{
    return {p.X(), p.Y(), p.Z()};
}

Kernel::Point_2 planar(UPoint3<float> const& p, int droppedAxis)
{
    return {p[(droppedAxis + 1) % 3], p[(droppedAxis + 2) % 3]};
}

}  // namespace

int arbitraryOrient3d(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c,
                      UPoint3<float> const& d)
{
    return int(CGAL::orientation(spatial(a), spatial(b), spatial(c), spatial(d)));
}

int arbitraryOrient2d(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c,
                      int droppedAxis)
{
    return int(
        CGAL::orientation(planar(a, droppedAxis), planar(b, droppedAxis), planar(c, droppedAxis)));
}

}  // namespace ExactSigns
