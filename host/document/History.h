// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/document/Transaction.h"

#include <QUndoStack>

namespace Mesh {
class DocumentObject;
}

namespace Base {

/// A document's undo steps, and the step that is open. The record operations note the present
/// value of something that is about to change; without an open step, and for a tool, they do nothing.
class History
{
public:
    explicit History(Document& document) : m_document(document) {}

    bool isOpen() const { return m_open != nullptr; }
    void open(std::string name);
    void commit();
    void abort();

    bool undo();
    bool redo();
    std::vector<std::string> undoNames() const;
    std::vector<std::string> redoNames() const;
    void clear() { m_stack.clear(); }
    static History const& of(Document const& document) { return *document.m_history; }
    /// Of all steps, the oldest first.
    std::vector<StepFacts> facts() const;

    void recordPresence(EntryPtr const& entry);
    void recordSelection();
    void recordVisible(EntryPtr const& entry);
    void recordSemiVisible(EntryPtr const& entry);
    void recordName(EntryPtr const& entry);
    void recordColor(EntryPtr const& entry);
    void recordGroup(EntryPtr const& entry);
    void recordKernel(EntryPtr const& entry);
    void recordMatrix(EntryPtr const& entry);

    /// Exchanges what a step holds with what the document has.
    void exchange(Transaction& step);
    /// Tells the document's listeners; during an exchange later, when all of it is done.
    void notifyChanged(DocumentObject* object);

    /// Both sides of group membership are here: a part's group as an entry, and the other way.
    static EntryPtr groupOf(DocumentEntry const& entry);
    static void setGroup(DocumentEntry const& entry, EntryPtr const& group);

private:
    bool isHeld(EntryPtr const& entry) const;
    void exchangePresence(Transaction& step);
    void exchangeFields(ObjectChange& change);
    void exchangeSelection(Transaction& step, std::vector<EntryPtr> before);
    void tellListeners();

    Document& m_document;
    QUndoStack m_stack;
    std::unique_ptr<Transaction> m_open;
    bool m_wasModified = false;

    bool m_isExchanging = false;
    std::vector<EntryPtr> m_added;
    std::vector<EntryPtr> m_removed;
    std::vector<EntryPtr> m_changed;
    bool m_selectionChanged = false;
};

}  // namespace Base
