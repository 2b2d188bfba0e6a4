// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/sigslot.h"

#include <functional>
#include <map>
#include <string>
#include <utility>

namespace Base {
class Document;
class DocumentObject;
}  // namespace Base

namespace Freecut {

/// The tool objects that a mouse tool has put into documents. It alone owns them: they leave their
/// document through it, and a document that goes takes none of them along.
///
/// thread  the user interface thread
class ToolObjects : public sigslot::has_slots<sigslot::single_threaded>
{
public:
    using Lost = std::function<void(Base::DocumentObject*)>;

    ToolObjects() = default;
    ~ToolObjects() override;
    ToolObjects(ToolObjects const&) = delete;
    ToolObjects& operator=(ToolObjects const&) = delete;

    /// Tells of each object that leaves its document otherwise than by clear(): another hand has
    /// taken it out, and owns it now, or the document goes. The object still exists.
    void whenLost(Lost lost) { m_lost = std::move(lost); }

    /// Takes an object over and puts it into a document under the name that it has. It is selected
    /// by a call of its own, when it is ready to be looked at.
    void add(Base::Document& document, Base::DocumentObject* tool);

    /// Takes all objects out of their documents and deletes them. A document's listeners hear of
    /// each with its own class name while it still exists.
    void clear();

    bool isEmpty() const { return m_documents.empty(); }
    std::map<Base::DocumentObject*, Base::Document*> const& documents() const
    {
        return m_documents;
    }

private:
    void objectLeft(Base::DocumentObject* object, std::string className);
    void documentGoes();

    Lost m_lost;
    std::map<Base::DocumentObject*, Base::Document*> m_documents;
};

}  // namespace Freecut
