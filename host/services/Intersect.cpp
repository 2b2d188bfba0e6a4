// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/Intersect.h"

#include "host/mesh/Placement.h"
#include "host/services/boolean/SolidBoolean.h"
#include "host/services/planecut/PlaneCut.h"

#include <array>

namespace {

/// A kernel's solid in final coordinates: its own mesh, or that of a copy with the matrix applied.
class PlacedSolid
{
public:
    explicit PlacedSolid(MeshKernel const& kernel)
        : m_copy(kernel.getMatrix().isIdentity() ? nullptr : placedCopy(kernel)),
          m_kernel(m_copy ? *m_copy : kernel)
    {}

    MeshKernel const& kernel() const { return m_kernel; }

private:
    std::shared_ptr<MeshKernel> m_copy;
    MeshKernel const& m_kernel;
};

BooleanPiece pieceOf(Intersect::BooleanType type)
{
    switch (type) {
        case Intersect::BOOLEAN_UNION:
            return BooleanPiece::united;
        case Intersect::BOOLEAN_INTERSECT:
            return BooleanPiece::common;
        case Intersect::BOOLEAN_SUBTRACT:
            break;
    }
    return BooleanPiece::difference;
}

/// Hands the results of a boolean out, once all are made.
void deliver(std::vector<BooleanResult>& results, PlacedSolid const& part,
             std::span<MeshKernel* const> kernels)
{
    for (std::size_t i = 0; i < results.size(); ++i)
        if (results[i].mesh)
            kernels[i]->replaceMesh(std::move(results[i].mesh));
        else
            kernels[i]->shareMeshOf(part.kernel());
}

}  // namespace

void Intersect::cutByPlane(MeshKernel* part, MeshKernel* plane, MeshKernel* sideA,
                           MeshKernel* sideB, MeshKernel* section,
                           std::function<void(int)> progress, bool)
{
    PlacedSolid const solid(*part);
    MeshKernel const& placed = solid.kernel();
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

void Intersect::boolean(MeshKernel* a, MeshKernel* b, std::vector<MeshKernel*>& out,
                        BooleanType type, std::function<void(int)> progress, int)
{
    PlacedSolid const part(*a);
    std::array const pieces{pieceOf(type)};
    auto results = combineSolids(part.kernel(), *b, pieces, progress);
    deliver(results, part, out);
}

void Intersect::boolean_subtract_keep(MeshKernel* a, MeshKernel* b, MeshKernel* first,
                                      MeshKernel* second, std::function<void(int)> progress, int)
{
    PlacedSolid const part(*a);
    std::array const pieces{BooleanPiece::common, BooleanPiece::difference};
    auto results = combineSolids(part.kernel(), *b, pieces, progress);
    std::array const kernels{first, second};
    deliver(results, part, kernels);
}
