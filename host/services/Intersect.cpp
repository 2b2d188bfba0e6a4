// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/Intersect.h"

#include "host/mesh/Placement.h"
#include "host/services/planecut/PlaneCut.h"

void Intersect::cutByPlane(MeshKernel* part, MeshKernel* plane, MeshKernel* sideA,
                           MeshKernel* sideB, MeshKernel* section,
                           std::function<void(int)> progress, bool)
{
    // The part in final coordinates: its own kernel, or a copy with the matrix applied.
    std::shared_ptr<MeshKernel> const copy =
        part->getMatrix().isIdentity() ? nullptr : placedCopy(*part);
    MeshKernel const& placed = copy ? *copy : *part;
    auto const mesh = placed.readMesh();
    if (mesh->triangles.empty())
        return;
    CutPlane const cutPlane(*plane);
    PlaneCutResult result = cutMeshByPlane(*mesh, cutPlane, progress);
    if (result.whole != PlaneCutResult::Whole::no) {
        bool const isAbove = result.whole == PlaneCutResult::Whole::above;
        (isAbove ? sideA : sideB)->shareMeshOf(placed);
        return;
    }
    sideA->replaceMesh(std::move(result.above));
    sideB->replaceMesh(std::move(result.below));
    if (section)
        section->replaceMesh(std::move(result.section));
}
