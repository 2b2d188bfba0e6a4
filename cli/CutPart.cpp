// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CutPart.h"

#include "platform/document/MeshDocumentObject.h"

std::vector<CutPart> describeParts(std::vector<SourcePart> const& sources,
                                   std::vector<Mesh::DocumentObject*> const& objects, bool measure)
{
    std::vector<CutPart> parts;
    for (std::size_t i = 0; i < sources.size(); ++i) {
        CutPart part;
        part.source = sources[i].file;
        part.format = sources[i].format;
        part.object = objects[i];
        MeshKernel const& kernel = *objects[i]->meshProperty->getMesh();
        part.triangles = kernel.readMesh()->triangles.size();
        if (measure)
            part.facts = measureMesh(kernel);
        parts.push_back(std::move(part));
    }
    return parts;
}
