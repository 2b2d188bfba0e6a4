// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/MeshDocumentObject.h"

#include <memory>
#include <string>

namespace Support {

/// A part that carries support structures, as one mesh with them: a part like any other, but for
/// its class name, by which a cut asks before it deletes the supports. Copies are of the class too.
class DocumentObject : public Mesh::DocumentObject
{
public:
    static Base::Type classTypeId;
    static Base::Type getClassTypeId() { return classTypeId; }
    static void init();
    static void* create();

    Base::Type getTypeId() const override;
    std::string getClassName() const override;
    DocumentObject* shallowCopy() const override;
    bool hasSupportCheck() const override;
};

/// A part, of this class or a plain one; the caller owns it.
std::unique_ptr<Mesh::DocumentObject> makePart(bool carriesSupport);

}  // namespace Support
