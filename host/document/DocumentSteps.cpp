// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/document/History.h"
#include "platform/document/Document.h"

#include <algorithm>
#include <unordered_set>

// The selection, the history and the view of a document.
namespace Base {

std::vector<DocumentObject*> Document::getSelectedObjects() const
{
    std::vector<DocumentObject*> objects;
    for (EntryPtr const& entry : m_selection)
        objects.push_back(entry->object.get());
    return objects;
}

bool Document::isSelected(DocumentObject const* object) const
{
    return std::any_of(m_selection.begin(), m_selection.end(),
                       [&](EntryPtr const& entry) { return entry->object.get() == object; });
}

void Document::select(DocumentObject* object, bool selected, bool notify, bool exclusive)
{
    EntryPtr const entry = find(object);
    if (!entry)
        return;
    std::vector<EntryPtr> selection = exclusive ? toolsAmong(m_selection) : m_selection;
    if (!selected)
        std::erase(selection, entry);
    else if (std::find(selection.begin(), selection.end(), entry) == selection.end())
        selection.push_back(entry);
    if (selection == m_selection)
        return;
    if (toolsAmong(selection, false) != toolsAmong(m_selection, false))
        m_history->recordSelection();
    m_selection = std::move(selection);
    if (notify)
        signalObjectSelectionChanged();
}

void Document::removefromSelectedObjects(DocumentObject* object)
{
    select(object, false, true, false);
}

void Document::clearSelection()
{
    std::vector<EntryPtr> tools = toolsAmong(m_selection);
    if (tools.size() == m_selection.size())
        return;
    m_history->recordSelection();
    m_selection = std::move(tools);
    signalObjectSelectionChanged();
}

std::string Document::getUniqueObjectName(char const* base, std::string suffix, bool useSuffix,
                                          bool numbered) const
{
    std::unordered_set<std::string> taken;
    for (EntryPtr const& entry : m_entries)
        taken.insert(entry->object->getName());

    std::string const plain = useSuffix ? base + suffix : base;
    if (!numbered && !taken.contains(plain))
        return plain;
    for (unsigned long number = 1;; ++number) {
        std::string name = plain + std::to_string(number);
        if (!taken.contains(name))
            return name;
    }
}

void Document::openTransaction(char const* name)
{
    m_history->open(name ? name : "");
}

void Document::commitTransaction()
{
    m_history->commit();
}

void Document::abortTransaction()
{
    m_history->abort();
}

bool Document::hasOpenTransaction() const
{
    return m_history->isOpen();
}

bool Document::undo()
{
    bool const isDone = m_history->undo();
    if (isDone)
        setModified(true);
    return isDone;
}

bool Document::redo()
{
    bool const isDone = m_history->redo();
    if (isDone)
        setModified(true);
    return isDone;
}

std::vector<std::string> Document::undoNames() const
{
    return m_history->undoNames();
}

std::vector<std::string> Document::redoNames() const
{
    return m_history->redoNames();
}

void Document::clearHistory()
{
    m_history->commit();
    m_history->clear();
    signalStateChanged();
}

void Document::setView(GLView* view)
{
    for (EntryPtr const& entry : m_entries)
        entry->provider.reset();
    m_view = view;
    for (EntryPtr const& entry : m_entries)
        makeViewProvider(*entry);
}

void Document::makeViewProvider(DocumentEntry& entry) const
{
    std::string const className = entry.object->getViewProviderName();
    if (!m_view || className.empty())
        return;
    std::unique_ptr<BaseClass> made(Type::createInstance(className));
    if (!dynamic_cast<ViewProvider*>(made.get()))
        return;
    entry.provider.reset(static_cast<ViewProvider*>(made.release()));
    entry.provider->attach(entry.object.get());
    entry.provider->attachGLViewer(m_view);
    if (entry.object->isVisible())
        entry.provider->show();
    else
        entry.provider->hide();
}

ViewProvider* Document::getViewProvider(DocumentObject const* object) const
{
    EntryPtr const entry = find(object);
    return entry ? entry->provider.get() : nullptr;
}

}  // namespace Base
