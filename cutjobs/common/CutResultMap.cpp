// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/common/CutResultMap.h"

#include "platform/mesh/MeshKernel.h"
#include "platform/mesh/UMesh.h"

void storePiece(CutResultMap& result, Mesh::DocumentObject* part,
                std::shared_ptr<MeshKernel> const& piece)
{
    if (!piece->readMesh()->triangles.empty())
        result[part].push_back(piece);
}
