// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/DocumentParts.h"

#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"

CutPart addPart(Mesh::Document& document, SourcePart source, bool measure)
{
    CutPart part;
    part.source = part.label = source.file;
    part.format = source.format;
    part.color = source.color;
    part.triangles = source.kernel->readMesh()->triangles.size();
    if (measure)
        part.facts = measureMesh(*source.kernel);
    part.object = new Mesh::DocumentObject;
    part.object->meshProperty->setMesh(source.kernel.release(), true);
    std::string const name = document.getUniqueObjectName(source.name.c_str(), {}, false, false);
    document.addObject(part.object, name.c_str(), false);
    part.name = part.object->getName();
    return part;
}

CutPiece pieceOf(Mesh::DocumentObject const& object)
{
    CutPiece piece;
    piece.name = object.getName();
    piece.kernel = object.meshProperty->shareMesh();
    return piece;
}
