// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/common/SolidCombining.h"

#include <vector>

void combineSolids(MeshKernel& a, MeshKernel& b, MeshKernel& result, Intersect::BooleanType type,
                   std::function<void(int)> const& progress)
{
    std::vector<MeshKernel*> out{&result};
    Intersect::boolean(&a, &b, out, type, progress, 1);
}
