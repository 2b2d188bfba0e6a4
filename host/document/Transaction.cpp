// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/document/Transaction.h"

#include "host/document/History.h"

namespace Base {

Transaction::Transaction(History& history, std::string stepName)
    : QUndoCommand(QString::fromStdString(stepName)), name(std::move(stepName)), m_history(history)
{}

void Transaction::undo()
{
    m_history.exchange(*this);
    m_isDone = false;
}

void Transaction::redo()
{
    if (m_isDone)
        return;
    m_history.exchange(*this);
    m_isDone = true;
}

ObjectChange& Transaction::of(EntryPtr const& entry)
{
    ObjectChange& change = changes[entry->key];
    change.entry = entry;
    return change;
}

}  // namespace Base
