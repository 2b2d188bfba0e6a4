// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/CutSides.h"

#include "cutjobs/common/ProgressScale.h"
#include "cutjobs/common/RemarkTexts.h"
#include "cutjobs/common/ServiceCall.h"

#include <algorithm>
#include <vector>

namespace {

/// Whether a clean-up has nothing to do. A part that the plane does not cross shares its mesh with
/// its only piece, and cleaning up would copy it.
bool isClean(UMesh<float> const& mesh)
{
    std::vector<bool> isUsed(mesh.vertices.size(), false);
    for (std::size_t v = 0; v < mesh.vertices.size(); ++v)
        if (mesh.vertices[v]->cID() != v)
            return false;
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
        UTriangle<float> const& triangle = *mesh.triangles[t];
        if (triangle.cID() != t || triangle.ComputeNormalizedNormal() == UVector3<float>())
            return false;
        for (int k = 0; k < 3; ++k)
            isUsed[triangle.cV(k)->cID()] = true;
    }
    return std::find(isUsed.begin(), isUsed.end(), false) == isUsed.end();
}

}  // namespace

CutSides CutSides::cut(MeshKernel const* part, MeshKernel* plane,
                       std::function<void(int)> const& progress, int index, int partCount,
                       bool wantsSection, CutFailure& failure)
{
    CutSides sides;
    if (wantsSection)
        sides.section = std::make_shared<MeshKernel>();
    auto const copy = std::make_shared<MeshKernel>(part);
    ServiceCall::run(failure, [&] {
        sides.notes = cutByPlaneWithNotes(
            *copy, *plane, *sides.sideA, *sides.sideB, sides.section.get(),
            ProgressScale::scaled(progress, ProgressScale::planeCut, index, partCount));
    });
    ServiceCall::run(failure, [&] {
        if (progress)
            progress(ProgressScale::partDone(index, partCount));
    });
    for (auto const& side : {sides.sideA, sides.sideB})
        if (side->readMesh() != copy->readMesh() || !isClean(*side->readMesh()))
            cleanUpPiece(*side);
    return sides;
}

bool CutSides::isUncut() const
{
    return sideA->readMesh()->triangles.empty() != sideB->readMesh()->triangles.empty();
}

CutRemarks CutSides::remarks(Mesh::DocumentObject* part, bool isBounded) const
{
    return isUncut() ? CutRemarks{planeMisses(part, isBounded)} : remarksOn(notes, part);
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
