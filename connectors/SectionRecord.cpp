// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/SectionRecord.h"

#include "platform/mesh/MeshKernel.h"
#include "platform/mesh/UMesh.h"

double sectionArea(MeshKernel const& cap)
{
    double area = 0;
    for (UTriangle<float> const* const t : cap.readMesh()->triangles) {
        auto const corner = [&](int i) {
            UPoint3<float> const& p = t->cP(i);
            return UVector3<double>(p.X(), p.Y(), p.Z());
        };
        area += ((corner(1) - corner(0)) * (corner(2) - corner(0))).GetLength() / 2;
    }
    return area;
}
