// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/document/History.h"
#include "platform/document/MeshDocumentObject.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Base {

namespace {

// Puts the held value in place, by `set`, and holds the present one instead.
template <typename T, typename Set>
void exchangeValue(std::optional<T>& held, T const& present, Set const& set)
{
    if (!held)
        return;
    T before = present;
    set(*held);
    held = std::move(before);
}

}  // namespace

void History::exchange(Transaction& step)
{
    // What is detached meanwhile is forgotten.
    std::erase_if(step.changes, [](auto const& item) { return !item.second.entry->object; });

    m_isExchanging = true;
    std::vector<EntryPtr> before = m_document.m_selection;
    for (auto& [key, change] : step.changes)
        change.groupBefore = groupOf(*change.entry);
    exchangePresence(step);
    for (auto& [key, change] : step.changes)
        exchangeFields(change);
    exchangeSelection(step, std::move(before));
    m_isExchanging = false;
}

void History::exchangePresence(Transaction& step)
{
    for (auto& [key, change] : step.changes) {
        if (!change.present || *change.present == change.entry->isPresent)
            continue;
        change.present = change.entry->isPresent;
        if (change.entry->isPresent) {
            m_document.takeOut(change.entry);
            m_removed.push_back(change.entry);
        } else {
            m_document.insert(change.entry);
            m_added.push_back(change.entry);
        }
    }
}

void History::exchangeFields(ObjectChange& change)
{
    DocumentObject& object = *change.entry->object;
    exchangeValue(change.visible, object.isVisible(), [&](bool v) { object.setVisible(v); });
    exchangeValue(change.semiVisible, object.isSemiVisible(),
                  [&](bool v) { object.setSemiVisible(v); });
    exchangeValue(change.name, object.getName(), [&](auto const& v) { object.setName(v); });
    exchangeValue(change.color, object.getColor(), [&](unsigned v) { object.setColor(v); });
    exchangeValue(change.group, std::exchange(change.groupBefore, nullptr),
                  [&](EntryPtr const& group) {
                      setGroup(*change.entry, group);
                      notifyChanged(&object);
                  });

    auto* const part = dynamic_cast<Mesh::DocumentObject*>(&object);
    if (!part)
        return;
    exchangeValue(change.kernel, part->meshProperty->shareMesh(),
                  [&](auto const& kernel) { part->meshProperty->setMesh(kernel); });
    for (auto& [kernel, matrix] : change.matrices)
        std::swap(kernel->getMatrix(), matrix);
    if (!change.matrices.empty()) {
        part->updateBoundingBox();
        part->setUpdateVolumnAndArea(true);
        notifyChanged(part);
    }
}

void History::exchangeSelection(Transaction& step, std::vector<EntryPtr> before)
{
    std::vector<EntryPtr>& selection = m_document.m_selection;
    if (step.selection) {
        selection = std::exchange(*step.selection, toolsAmong(before, false));
        std::ranges::copy(toolsAmong(before), std::back_inserter(selection));
        std::erase_if(selection, [](EntryPtr const& entry) { return !entry->isPresent; });
    }
    m_selectionChanged = m_selectionChanged || selection != before;
}

void History::tellListeners()
{
    // A listener may change the document, so the lists are taken over first.
    std::vector<EntryPtr> const removed = std::exchange(m_removed, {});
    std::vector<EntryPtr> const added = std::exchange(m_added, {});
    std::vector<EntryPtr> const changed = std::exchange(m_changed, {});
    bool const selectionChanged = std::exchange(m_selectionChanged, false);

    for (EntryPtr const& entry : removed)
        if (entry->object)
            m_document.signalDelObject(entry->object.get(), entry->object->getClassName());
    for (EntryPtr const& entry : added)
        if (entry->isPresent)
            m_document.signalNewObject(entry->object.get());
    for (EntryPtr const& entry : changed)
        if (entry->isPresent)
            m_document.signalObjectChanged(entry->object.get());
    if (selectionChanged)
        m_document.signalObjectSelectionChanged();
    m_document.signalStateChanged();
}

}  // namespace Base
