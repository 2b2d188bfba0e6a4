// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/PropertyContainer.h"
#include "platform/geometry/UBox3.h"
#include "platform/geometry/UMatrix4.h"

#include <chrono>

namespace Base {

class Document;
class DocumentEntry;
class History;

/// An object of a document. Changes of what a document shows of it (visibility, colour, name,
/// selection) are part of the open transaction, if there is one; an object that is in no document
/// is simply changed. The defaults are those of an object without geometry.
///
/// thread  the user interface thread
class DocumentObject : public PropertyContainer
{
public:
    static Type classTypeId;
    static Type getClassTypeId() { return classTypeId; }
    static void init();
    static PropertyData* getPropertyDataPtr() { return &propertyData; }

    DocumentObject();
    ~DocumentObject() override;

    Type getTypeId() const override;
    std::string getClassName() const override;
    PropertyData const& getPropertyData() const override;

    /// The class of the view provider that shows the object; empty if nothing does.
    virtual std::string getViewProviderName() const;
    /// Called by the document that takes the object in or lets it out (null).
    virtual void setDocument(Document* document);
    virtual void setVisible(bool visible);
    /// Shown as a ghost while it is invisible.
    virtual void setSemiVisible(bool semiVisible);
    /// The colour as 0xRRGGBBAA; 0 stands for the view's own choice.
    virtual void setColor(unsigned rgba);
    /// Components from 0 to 255; others are clamped.
    virtual void setColor(int red, int green, int blue, int alpha);
    virtual unsigned getColor() const;

    using PropertyContainer::onBeforeChange;
    using PropertyContainer::onChanged;
    /// Called by the properties around a change of their value.
    virtual void onBeforeChange(Property* property);
    virtual void onChanged(Property* property);

    /// A new object that shares nothing, or shares what it can, with this one; in no document and
    /// owned by the caller. Null for a class that cannot be copied.
    virtual DocumentObject* deepCopy() const;
    virtual DocumentObject* shallowCopy() const;

    /// Selects the object in its document or takes it out of the selection. Without a document it
    /// does nothing.
    ///
    /// notify     tell the document's listeners
    /// exclusive  empty the selection first
    virtual void setSelected(bool selected, bool notify, bool exclusive);
    /// Highlighted as a candidate; a matter of display.
    virtual void setSemiSelected(bool semiSelected);

    /// Takes over the other object's look and contents, as far as the classes agree.
    virtual void copyFrom(DocumentObject* source);
    /// Reads the contents from a file, UTF-8 path; false if the class has no file form.
    virtual bool load(char const* file);

    // Memory that can be filled again on demand; this class has none.
    virtual void freeMemory();
    virtual void updateMemory();

    /// When the object was made.
    virtual std::chrono::system_clock::time_point date() const;
    /// A universally unique identifier, made on first use unless set.
    virtual void setUuid(std::string uuid);
    virtual std::string getUuid() const;
    /// The identifier of the object this one was made from; empty if there is none.
    virtual void setParentUuid(std::string uuid);
    virtual std::string getParentUuid() const;

    /// Places an object that is being dragged, relative to where the editing began.
    virtual void loadMatrixWithEditing(UMatrix4<float> const& matrix);
    virtual void updateBoundingBox();
    /// World millimetres; null without geometry.
    virtual UBox3<float> getBoundingBox() const;

    bool isVisible() const { return m_isVisible; }
    bool isSemiVisible() const { return m_isSemiVisible; }
    bool isSelected() const;
    bool isSemiSelected() const { return m_isSemiSelected; }
    std::string const& getName() const { return m_name; }
    /// Names need not be unique in a document.
    void setName(std::string name);
    /// The document the object is in, or null.
    Document* getDocument() const { return m_document; }

protected:
    static PropertyData propertyData;

    /// Tells the document's listeners that the object looks different.
    void notifyChanged();
    /// Where a change is recorded before it is made; null if there is nothing to record it in.
    History* openHistory() const;
    std::shared_ptr<DocumentEntry> entry() const { return m_entry.lock(); }

private:
    friend class Document;
    friend class History;

    Document* m_document = nullptr;
    std::weak_ptr<DocumentEntry> m_entry;
    std::string m_name;
    unsigned m_color = 0;
    bool m_isVisible = true;
    bool m_isSemiVisible = false;
    bool m_isSemiSelected = false;
    std::chrono::system_clock::time_point m_date = std::chrono::system_clock::now();
    mutable std::string m_uuid;
    std::string m_parentUuid;
};

}  // namespace Base
