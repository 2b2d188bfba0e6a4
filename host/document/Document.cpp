// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/document/Document.h"

#include "host/document/History.h"
#include "platform/document/DocumentObjectGroup.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/jobs/Exceptions.h"

#include <QCoreApplication>

#include <algorithm>

namespace Base {

constinit Type Document::classTypeId;

void Document::init()
{
    initSubclass(classTypeId, "Base::Document", "Base::BaseClass", nullptr);
}

Document::Document(std::string name)
    : m_name(std::move(name)), m_history(std::make_unique<History>(*this))
{}

Document::~Document()
{
    signalDocumentDeleted();
    m_history.reset();
    m_selection.clear();
    for (EntryPtr const& entry : m_entries) {
        entry->provider.reset();
        entry->object->setDocument(nullptr);
    }
}

Type Document::getTypeId() const
{
    return classTypeId;
}

std::string Document::getClassName() const
{
    return "Base::Document";
}

void Document::addObject(DocumentObject* object, char const* name, bool notify)
{
    if (object->getDocument() && object->getDocument() != this)
        throw Mell::Exception(
            QCoreApplication::translate(
                "Document", "\"%1\" is in another document; take it out of there first.")
                .arg(QString::fromStdString(object->getName()))
                .toStdString());
    if (name && *name)
        object->setName(name);
    if (contains(object))
        return;

    // An object that an undo step still holds comes back under its old entry.
    EntryPtr entry = object->m_entry.lock();
    if (!entry) {
        entry = std::make_shared<DocumentEntry>();
        entry->object.reset(object);
        entry->key = m_nextKey++;
        object->m_entry = entry;
    }
    m_history->recordPresence(entry);
    insert(entry);
    if (notify)
        signalNewObject(object);
}

void Document::removeObject(DocumentObject* object)
{
    // Held until the listeners have been told.
    EntryPtr const entry = find(object);
    if (!entry)
        return;
    bool const wasSelected = isSelected(object);
    leave(entry);
    m_history->recordPresence(entry);
    takeOut(entry);
    signalDelObject(object, object->getClassName());
    if (wasSelected)
        signalObjectSelectionChanged();
}

std::unique_ptr<DocumentObject> Document::detachObject(DocumentObject* object)
{
    EntryPtr const entry = find(object);
    if (!entry)
        return nullptr;
    bool const wasSelected = isSelected(object);
    takeOut(entry);
    std::unique_ptr<DocumentObject> detached = std::move(entry->object);
    detached->m_entry.reset();
    signalDelObject(object, object->getClassName());
    if (wasSelected)
        signalObjectSelectionChanged();
    return detached;
}

// Ends an object's relations in a way that an open transaction can undo.
void Document::leave(EntryPtr const& entry)
{
    if (isSelected(entry->object.get())) {
        if (!entry->isTool())
            m_history->recordSelection();
        std::erase(m_selection, entry);
    }
    for (EntryPtr const& other : m_entries)
        if (other == entry || History::groupOf(*other) == entry)
            if (History::groupOf(*other)) {
                m_history->recordGroup(other);
                History::setGroup(*other, nullptr);
            }
}

void Document::insert(EntryPtr const& entry)
{
    auto const place =
        std::lower_bound(m_entries.begin(), m_entries.end(), entry,
                         [](EntryPtr const& a, EntryPtr const& b) { return a->key < b->key; });
    m_entries.insert(place, entry);
    entry->isPresent = true;
    entry->object->setDocument(this);
    makeViewProvider(*entry);
}

void Document::takeOut(EntryPtr const& entry)
{
    std::erase(m_selection, entry);
    for (EntryPtr const& other : m_entries)
        if (other == entry || History::groupOf(*other) == entry)
            History::setGroup(*other, nullptr);
    std::erase(m_entries, entry);
    entry->isPresent = false;
    entry->provider.reset();
    entry->object->setDocument(nullptr);
}

Document::EntryPtr Document::find(DocumentObject const* object) const
{
    // A scan, so that a pointer to an object that is long gone is a question like any other.
    auto const found = std::find_if(m_entries.begin(), m_entries.end(), [&](EntryPtr const& entry) {
        return entry->object.get() == object;
    });
    return found == m_entries.end() ? nullptr : *found;
}

std::vector<DocumentObject*> Document::getObjectArray() const
{
    std::vector<DocumentObject*> objects;
    for (EntryPtr const& entry : m_entries)
        objects.push_back(entry->object.get());
    return objects;
}

bool Document::contains(DocumentObject const* object) const
{
    return find(object) != nullptr;
}

std::vector<Mesh::DocumentObject*> Document::getMeshObjects() const
{
    return {};
}

std::vector<Mesh::DocumentObject*> Document::getPartList() const
{
    return {};
}

void Document::setName(std::string name)
{
    m_name = std::move(name);
    signalStateChanged();
}

void Document::setModified(bool modified)
{
    if (modified == m_isModified)
        return;
    m_isModified = modified;
    signalStateChanged();
}

}  // namespace Base
