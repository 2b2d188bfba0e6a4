// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/DocumentParts.h"

#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"

std::vector<CutPart> addParts(Mesh::Document& document, std::vector<SourcePart>& sources,
                              bool measure)
{
    std::vector<CutPart> parts;
    for (SourcePart& source : sources) {
        auto* const object = new Mesh::DocumentObject;
        object->meshProperty->setMesh(source.kernel.release(), true);
        std::string const name =
            document.getUniqueObjectName(source.name.c_str(), {}, false, false);
        document.addObject(object, name.c_str(), false);
        parts.push_back(describePart(source, *object->meshProperty->getMesh(), measure));
        parts.back().object = object;
    }
    return parts;
}

std::vector<Mesh::DocumentObject*> objectsOf(std::vector<CutPart> const& parts)
{
    std::vector<Mesh::DocumentObject*> objects;
    for (CutPart const& part : parts)
        objects.push_back(part.object);
    return objects;
}
