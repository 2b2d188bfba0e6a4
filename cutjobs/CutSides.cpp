// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/CutSides.h"

#include "cutjobs/common/ProgressScale.h"
#include "cutjobs/common/ServiceCall.h"
#include "platform/services/Intersect.h"

CutSides CutSides::cut(MeshKernel const* part, MeshKernel* plane,
                       std::function<void(int)> const& progress, int index, int partCount,
                       std::string& reason)
{
    CutSides sides;
    auto const copy = std::make_shared<MeshKernel>(part);
    ServiceCall::run(reason, [&] {
        Intersect::cutByPlane(
            copy.get(), plane, sides.sideA.get(), sides.sideB.get(), sides.section.get(),
            ProgressScale::scaled(progress, ProgressScale::planeCut, index, partCount), true);
    });
    ServiceCall::run(reason, [&] {
        if (progress)
            progress(ProgressScale::partDone(index, partCount));
    });
    cleanUpPiece(*sides.sideA);
    cleanUpPiece(*sides.sideB);
    return sides;
}

bool CutSides::isUncut() const
{
    return sideA->readMesh()->triangles.empty() != sideB->readMesh()->triangles.empty();
}

void CutSides::store(CutResultMap& result, Mesh::DocumentObject* part) const
{
    storePiece(result, part, sideA);
    storePiece(result, part, sideB);
}

void cleanUpPiece(MeshKernel& piece)
{
    piece.DeleteDegenerateTris();
    piece.DeleteUnreferenceVerts();
    piece.UpdateTrisID();
    piece.UpdateVertsID();
    piece.UpdateBoundingBox();
}
