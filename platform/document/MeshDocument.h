// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/Document.h"

namespace Mesh {

class DocumentObjectGroup;

/// A document of parts.
class Document : public Base::Document
{
public:
    static Base::Type classTypeId;
    static Base::Type getClassTypeId() { return classTypeId; }
    static void init();
    static void* create();

    using Base::Document::Document;

    Base::Type getTypeId() const override;
    std::string getClassName() const override;

    /// All objects of class "Mesh::DocumentObject" or "Support::DocumentObject", in order.
    std::vector<DocumentObject*> getMeshObjects() const override;
    /// The visible parts: an invisible one does not widen the range of a height.
    std::vector<DocumentObject*> getPartList() const override;
    /// The parts among the selected objects.
    std::vector<DocumentObject*> getSelectedMeshObjects() const;
    std::vector<DocumentObjectGroup*> getGroups() const;
};

}  // namespace Mesh
