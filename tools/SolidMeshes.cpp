// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/SolidMeshes.h"

#include "display/VolumeViewProvider.h"
#include "platform/mesh/UMesh.h"
#include "tools/PrismMesh.h"
#include "tools/SolidLoops.h"
#include "tools/VolumeOutline.h"
#include "tools/VolumeProperty.h"

#include <memory>

namespace Freecut::SolidMeshes {

namespace {

using Mesh = std::unique_ptr<UMesh<float>>;

Mesh prismsOf(Loops const& top, Loops const& bottom, UVector3<float> const& extrudeVector)
{
    auto mesh = std::make_unique<UMesh<float>>();
    fillWithPrisms(*mesh, top, bottom, extrudeVector);
    return mesh;
}

/// The view provider of a solid tool that has outlines; null otherwise.
VolumeViewProvider* providerWithOutline(GraphicViewProvider* provider)
{
    auto* const volume = dynamic_cast<VolumeViewProvider*>(provider);
    return volume && volume->getOutline() ? volume : nullptr;
}

/// The bottoms are up to date in a preview alone.
void bringBottomUpToDate(VolumeViewProvider& provider)
{
    if (!provider.getOutline()->record().getPreviewOn())
        provider.buildSolidBuffers();
}

}  // namespace

UMesh<float>* nominal(GraphicViewProvider* provider)
{
    VolumeViewProvider* const volume = providerWithOutline(provider);
    if (!volume)
        return nullptr;
    VolumeOutline const& outline = *volume->getOutline();
    UVector3<float> const extrudeVector = outline.record().getExtrudeVector();
    // A ring needs no built solid.
    if (outline.isRing())
        return prismsBelow(outline.outlines().topLoops, extrudeVector).release();
    bringBottomUpToDate(*volume);
    return prismsOf(outline.outlines().topLoops, outline.outlines().bottomLoops, extrudeVector)
        .release();
}

std::vector<UMesh<float>*> inAndOut(GraphicViewProvider* provider)
{
    VolumeViewProvider* const volume = providerWithOutline(provider);
    if (!volume)
        return {};
    VolumeOutline const& outline = *volume->getOutline();
    if (!outline.outlines().problem.empty())
        return {};
    bringBottomUpToDate(*volume);
    UVector3<float> const extrudeVector = outline.record().getExtrudeVector();
    Mesh inner =
        prismsOf(outline.outlines().topLoops, outline.outlines().bottomLoops, extrudeVector);
    Mesh outer = prismsBelow(outline.outerOutline(), extrudeVector);
    std::vector<UMesh<float>*> meshes;
    if (!inner->vertices.empty())
        meshes.push_back(inner.release());
    meshes.push_back(outer.release());
    return meshes;
}

}  // namespace Freecut::SolidMeshes
