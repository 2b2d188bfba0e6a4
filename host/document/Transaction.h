// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/document/DocumentEntry.h"
#include "platform/document/Document.h"
#include "platform/document/StepFacts.h"
#include "platform/geometry/UMatrix4.h"
#include "platform/mesh/MeshKernel.h"

#include <QUndoCommand>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Base {

using EntryPtr = std::shared_ptr<DocumentEntry>;

/// What a transaction holds of one object: the other value of each thing that it changes.
struct ObjectChange
{
    EntryPtr entry;
    std::optional<bool> present;
    std::optional<bool> visible;
    std::optional<bool> semiVisible;
    std::optional<std::string> name;
    std::optional<unsigned> color;
    std::optional<EntryPtr> group;
    /// During an exchange: the group before objects were taken out.
    EntryPtr groupBefore;
    std::optional<std::shared_ptr<MeshKernel>> kernel;
    std::vector<std::pair<std::shared_ptr<MeshKernel>, UMatrix4<float>>> matrices;
};

class History;

/// One undo step. It holds the other value of all that it changed, so undo, redo and rollback are
/// one exchange.
class Transaction : public QUndoCommand
{
public:
    Transaction(History& history, std::string name);

    void undo() override;
    /// The first call, when the step is pushed, does nothing: the changes have been made.
    void redo() override;

    bool isEmpty() const { return changes.empty() && !selection; }
    /// The record of an object, made on first use.
    ObjectChange& of(EntryPtr const& entry);

    std::string const name;
    /// Set when the step is done.
    StepFacts facts;
    /// By the document's order.
    std::map<unsigned long, ObjectChange> changes;
    std::optional<std::vector<EntryPtr>> selection;

private:
    History& m_history;
    bool m_isDone = true;
};

/// Of a step that has just been done.
StepFacts factsOf(Transaction const& step);

}  // namespace Base
