// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/Intersect.h"

#include "host/mesh/MeshCopy.h"
#include "host/services/planecut/PlaneCut.h"

namespace {

/// The part in final coordinates: the kernel's own mesh, or a copy with the matrix applied.
std::shared_ptr<UMesh<float> const> placedMesh(MeshKernel const& kernel)
{
    if (kernel.getMatrix().isIdentity())
        return kernel.readMesh();
    auto mesh = copyMesh(*kernel.readMesh());
    transformMesh(*mesh, kernel.getMatrix());
    return mesh;
}

/// Puts the whole part into one side.
void deliverWhole(MeshKernel const& part, std::shared_ptr<UMesh<float> const> const& placed,
                  MeshKernel& side)
{
    if (part.getMatrix().isIdentity())
        side.shareMeshOf(part);
    else
        side.replaceMesh(copyMesh(*placed));
}

}  // namespace

void Intersect::cutByPlane(MeshKernel* part, MeshKernel* plane, MeshKernel* sideA,
                           MeshKernel* sideB, MeshKernel* section,
                           std::function<void(int)> progress, bool)
{
    auto const mesh = placedMesh(*part);
    if (mesh->triangles.empty())
        return;
    CutPlane const cutPlane(*plane);
    PlaneCutResult result = cutMeshByPlane(*mesh, cutPlane, progress);
    if (result.whole != PlaneCutResult::Whole::no) {
        deliverWhole(*part, mesh, result.whole == PlaneCutResult::Whole::above ? *sideA : *sideB);
        return;
    }
    sideA->replaceMesh(std::move(result.above));
    sideB->replaceMesh(std::move(result.below));
    if (section)
        section->replaceMesh(std::move(result.section));
}
