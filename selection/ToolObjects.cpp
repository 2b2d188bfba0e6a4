// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/ToolObjects.h"

#include "platform/document/Document.h"
#include "platform/document/DocumentObject.h"

#include <memory>
#include <utility>

namespace Freecut {

ToolObjects::~ToolObjects()
{
    clear();
}

void ToolObjects::add(Base::Document& document, Base::DocumentObject* tool)
{
    // Once for each document, however many objects it gets.
    document.signalDelObject.disconnect(this);
    document.signalDelObject.connect(this, &ToolObjects::objectLeft);
    document.signalDocumentDeleted.disconnect(this);
    document.signalDocumentDeleted.connect(this, &ToolObjects::documentGoes);
    m_documents.emplace(tool, &document);
    document.addObject(tool, tool->getName().c_str(), true);
}

void ToolObjects::clear()
{
    disconnect_all();
    // Listeners that look here again find nothing.
    auto const documents = std::exchange(m_documents, {});
    for (auto const& [tool, document] : documents)
        std::unique_ptr<Base::DocumentObject> const owned = document->detachObject(tool);
}

void ToolObjects::objectLeft(Base::DocumentObject* object, std::string)
{
    // Whoever took it out owns it now.
    if (m_documents.erase(object) > 0 && m_lost)
        m_lost(object);
}

void ToolObjects::documentGoes()
{
    auto const documents = m_documents;
    for (auto const& [tool, document] : documents)
        if (m_lost)
            m_lost(tool);
    clear();
}

}  // namespace Freecut
