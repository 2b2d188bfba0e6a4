// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/common/CutResultMap.h"

#include "cutjobs/common/ClosedSurface.h"
#include "cutjobs/common/PartMesh.h"
#include "platform/mesh/MeshKernel.h"

void storePiece(CutResultMap& result, Mesh::DocumentObject* part,
                std::shared_ptr<MeshKernel> const& piece)
{
    if (piece->readMesh()->triangles.empty())
        return;
    if (MeshKernel const* const kernel = kernelOfPart(part))
        ClosedSurface::requireClosed(*piece, *kernel);
    result[part].push_back(piece);
}
