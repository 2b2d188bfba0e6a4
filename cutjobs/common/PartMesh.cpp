// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/common/PartMesh.h"

#include "platform/document/MeshDocumentObject.h"

MeshKernel* kernelOfPart(Mesh::DocumentObject const* part)
{
    return part && part->meshProperty ? part->meshProperty->getMesh() : nullptr;
}

UBox3<float> boxOfParts(std::vector<Mesh::DocumentObject*> const& parts)
{
    UBox3<float> box;
    for (Mesh::DocumentObject const* const part : parts)
        if (MeshKernel* const kernel = kernelOfPart(part))
            box.Add(kernel->GetBox());
    return box;
}
