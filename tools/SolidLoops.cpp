// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/SolidLoops.h"

#include "platform/mesh/UMesh.h"
#include "tools/PrismMesh.h"
#include "tools/VolumeOutline.h"
#include "tools/VolumeProperty.h"

namespace Freecut {

SolidLoops SolidLoops::of(VolumeOutline const& outline)
{
    SolidLoops loops;
    loops.extrudeVector = outline.record().getExtrudeVector();
    loops.hasClearance = outline.record().getClearanceEnabled();
    if (!outline.outlines().problem.empty())
        return loops;
    loops.inner = outline.innerOutline();
    if (loops.hasClearance)
        loops.outer = outline.outerOutline();
    return loops;
}

std::vector<std::unique_ptr<UMesh<float>>> SolidLoops::solids() const
{
    std::vector<std::unique_ptr<UMesh<float>>> meshes;
    auto first = prismsBelow(inner, extrudeVector);
    if (!hasClearance || !first->vertices.empty())
        meshes.push_back(std::move(first));
    if (hasClearance)
        meshes.push_back(prismsBelow(outer, extrudeVector));
    return meshes;
}

std::unique_ptr<UMesh<float>> prismsBelow(Loops const& top, UVector3<float> const& extrudeVector)
{
    auto mesh = std::make_unique<UMesh<float>>();
    fillWithPrisms(*mesh, top, translated(top, -extrudeVector), extrudeVector);
    return mesh;
}

}  // namespace Freecut
