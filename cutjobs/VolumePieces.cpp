// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/VolumePieces.h"

#include "cutjobs/common/RemarkTexts.h"

#include <array>
#include <vector>

namespace {

using Triangles = std::vector<std::array<UPoint3<float>, 3>>;

/// The triangles that have an area, in their final places.
Triangles trianglesOf(MeshKernel const& kernel)
{
    UMatrix4<float> const& matrix = kernel.getMatrix();
    bool const isPlain = matrix.isIdentity();
    Triangles triangles;
    for (UTriangle<float> const* const t : kernel.readMesh()->triangles) {
        std::array<UPoint3<float>, 3> corners{t->cP(0), t->cP(1), t->cP(2)};
        for (UPoint3<float>& corner : corners)
            corner = isPlain ? corner : matrix * corner;
        if (((corners[1] - corners[0]) * (corners[2] - corners[0])).GetLength() > 0)
            triangles.push_back(corners);
    }
    return triangles;
}

}  // namespace

std::optional<CutRemark> VolumePieces::remark(Mesh::DocumentObject* part,
                                              MeshKernel const& kernel) const
{
    if (kernel.readMesh()->triangles.empty() || (hasFirst() && hasSecond()))
        return {};
    if (!hasFirst() && !hasSecond())
        return gapTakesPart(part);
    // What a tool does not touch keeps its triangles in their order.
    if (trianglesOf(hasFirst() ? *first : *second) == trianglesOf(kernel))
        return hasFirst() ? toolHoldsPart(part) : toolMisses(part);
    return hasFirst() ? gapTakesOutside(part) : gapTakesInside(part);
}
