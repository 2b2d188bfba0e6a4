// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/Persistence.h"

namespace Base {

class DocumentObject;

/// A value that belongs to a document object. Derived records may be plain members of their object;
/// only those in the class's PropertyData are registered properties.
class Property : public Persistence
{
public:
    static Type classTypeId;
    static Type getClassTypeId() { return classTypeId; }
    static void init();

    Type getTypeId() const override;
    std::string getClassName() const override;

    /// The object this belongs to, borrowed; null if there is none.
    virtual void setContainer(DocumentObject* container);
    DocumentObject* getContainer() const { return m_container; }

    // Memory that can be filled again on demand. This class has none: it does nothing and its
    // memory is never free.
    virtual void freeMemory();
    virtual void updateMemory();
    virtual bool isMemoryFree() const;

    /// Bytes that SaveDocFile would write.
    virtual std::size_t getFileSize() const;

protected:
    /// Tell the container around a change of the value.
    void aboutToChange();
    void hasChanged();

private:
    DocumentObject* m_container = nullptr;
};

}  // namespace Base
