// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/document/History.h"

#include "platform/document/DocumentObjectGroup.h"
#include "platform/document/MeshDocumentObject.h"

#include <algorithm>

namespace Base {

void History::open(std::string name)
{
    commit();
    m_open = std::make_unique<Transaction>(*this, std::move(name));
    m_wasModified = m_document.isModified();
}

void History::commit()
{
    if (!m_open)
        return;
    std::unique_ptr<Transaction> step = std::move(m_open);
    if (step->isEmpty())
        return;
    step->facts = factsOf(*step);
    m_stack.push(step.release());
    m_document.signalStateChanged();
}

void History::abort()
{
    if (!m_open)
        return;
    std::unique_ptr<Transaction> const step = std::move(m_open);
    step->undo();
    tellListeners();
    m_document.setModified(m_wasModified);
}

bool History::undo()
{
    commit();
    if (!m_stack.canUndo())
        return false;
    m_stack.undo();
    tellListeners();
    return true;
}

bool History::redo()
{
    commit();
    if (!m_stack.canRedo())
        return false;
    m_stack.redo();
    tellListeners();
    return true;
}

std::vector<std::string> History::undoNames() const
{
    std::vector<std::string> names;
    for (int i = m_stack.index() - 1; i >= 0; --i)
        names.push_back(static_cast<Transaction const*>(m_stack.command(i))->name);
    return names;
}

std::vector<std::string> History::redoNames() const
{
    std::vector<std::string> names;
    for (int i = m_stack.index(); i < m_stack.count(); ++i)
        names.push_back(static_cast<Transaction const*>(m_stack.command(i))->name);
    return names;
}

std::vector<StepFacts> History::facts() const
{
    std::vector<StepFacts> facts;
    for (int i = 0; i < m_stack.count(); ++i)
        facts.push_back(static_cast<Transaction const*>(m_stack.command(i))->facts);
    return facts;
}

EntryPtr History::groupOf(DocumentEntry const& entry)
{
    auto const* const part = dynamic_cast<Mesh::DocumentObject const*>(entry.object.get());
    return part && part->m_group ? static_cast<DocumentObject*>(part->m_group)->m_entry.lock()
                                 : nullptr;
}

void History::setGroup(DocumentEntry const& entry, EntryPtr const& group)
{
    if (auto* const part = dynamic_cast<Mesh::DocumentObject*>(entry.object.get()))
        part->m_group = group && group->isPresent
                            ? static_cast<Mesh::DocumentObjectGroup*>(group->object.get())
                            : nullptr;
}

bool History::isHeld(EntryPtr const& entry) const
{
    return m_open && !entry->isTool();
}

void History::recordPresence(EntryPtr const& entry)
{
    if (isHeld(entry) && !m_open->of(entry).present)
        m_open->of(entry).present = entry->isPresent;
}

void History::recordSelection()
{
    if (m_open && !m_open->selection)
        m_open->selection = toolsAmong(m_document.m_selection, false);
}

void History::recordVisible(EntryPtr const& entry)
{
    if (isHeld(entry) && !m_open->of(entry).visible)
        m_open->of(entry).visible = entry->object->isVisible();
}

void History::recordSemiVisible(EntryPtr const& entry)
{
    if (isHeld(entry) && !m_open->of(entry).semiVisible)
        m_open->of(entry).semiVisible = entry->object->isSemiVisible();
}

void History::recordName(EntryPtr const& entry)
{
    if (isHeld(entry) && !m_open->of(entry).name)
        m_open->of(entry).name = entry->object->getName();
}

void History::recordColor(EntryPtr const& entry)
{
    if (isHeld(entry) && !m_open->of(entry).color)
        m_open->of(entry).color = entry->object->getColor();
}

void History::recordGroup(EntryPtr const& entry)
{
    if (isHeld(entry) && !m_open->of(entry).group)
        m_open->of(entry).group = groupOf(*entry);
}

void History::recordKernel(EntryPtr const& entry)
{
    auto const* const part = dynamic_cast<Mesh::DocumentObject const*>(entry->object.get());
    if (m_open && part && !m_open->of(entry).kernel)
        m_open->of(entry).kernel = part->meshProperty->shareMesh();
}

void History::recordMatrix(EntryPtr const& entry)
{
    auto const* const part = dynamic_cast<Mesh::DocumentObject const*>(entry->object.get());
    if (!m_open || !part || !part->meshProperty->getMesh())
        return;
    auto const& kernel = part->meshProperty->shareMesh();
    auto& matrices = m_open->of(entry).matrices;
    if (std::none_of(matrices.begin(), matrices.end(),
                     [&](auto const& known) { return known.first == kernel; }))
        matrices.emplace_back(kernel, kernel->getMatrix());
}

void History::notifyChanged(DocumentObject* object)
{
    if (!m_isExchanging) {
        m_document.signalObjectChanged(object);
        return;
    }
    EntryPtr const entry = object->m_entry.lock();
    if (entry && std::find(m_changed.begin(), m_changed.end(), entry) == m_changed.end())
        m_changed.push_back(entry);
}

}  // namespace Base
