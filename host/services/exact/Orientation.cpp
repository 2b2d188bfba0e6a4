// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/Orientation.h"

#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>

namespace Exact {

namespace {

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;

Kernel::Point_3 exactPoint(UPoint3<float> const& p)
{
    return {p.X(), p.Y(), p.Z()};
}

}  // namespace

int orientation(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c,
                UPoint3<float> const& p)
{
    return int(CGAL::orientation(exactPoint(a), exactPoint(b), exactPoint(c), exactPoint(p)));
}

}  // namespace Exact
