// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/ui/Application.h"
#include "tests/support/Soup.h"

#include <string>
#include <vector>

/// An application with one active document of parts.
class TestDocument
{
public:
    TestDocument() : document(application.newDocument("test")) {}

    Mesh::DocumentObject* add(Soup const& soup, std::string const& name)
    {
        auto* const part = new Mesh::DocumentObject;
        part->meshProperty->setMesh(kernelOf(soup).release(), true);
        document->addObject(part, name.c_str(), true);
        return part;
    }

    /// The names of the document's objects, in order.
    std::vector<std::string> names() const
    {
        std::vector<std::string> result;
        for (Base::DocumentObject const* const object : document->getObjectArray())
            result.push_back(object->getName());
        return result;
    }

    Application application;
    Mesh::Document* document;
};

/// The mesh of a part, as it is placed.
inline Soup soupOf(Mesh::DocumentObject const* part)
{
    return soupOf(*part->meshProperty->getMesh());
}
