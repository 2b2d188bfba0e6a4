// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/DocumentObject.h"

namespace Mesh {

class DocumentObject;

/// A named group of parts. It is an object of the document, and so are its members: the group owns
/// nothing. A part is in one group at most; membership is part of the open transaction.
class DocumentObjectGroup : public Base::DocumentObject
{
public:
    static Base::Type classTypeId;
    static Base::Type getClassTypeId() { return classTypeId; }
    static void init();
    static void* create();

    Base::Type getTypeId() const override;
    std::string getClassName() const override;

    /// Takes a part in, out of another group if need be. An object that is in no document is first
    /// added to the group's, under that name; null or empty keeps the name it has. An object that
    /// is not a part joins the document only.
    ///
    /// throws  Mell::Exception if the group is in no document; the caller then keeps the object
    void addObject(Base::DocumentObject* object, char const* name);

    /// Lets a part out of the group; it stays in the document. Others are left alone.
    void removeObject(Base::DocumentObject* object);

    /// The members, in the document's order.
    std::vector<Mesh::DocumentObject*> getObjects() const;
};

}  // namespace Mesh
