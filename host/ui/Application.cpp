// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/Application.h"

#include "platform/document/MeshDocument.h"
#include "platform/ui/ActiveDocument.h"
#include "platform/ui/Command.h"
#include "platform/ui/CommandManager.h"

#include <algorithm>
#include <cassert>

Application* Application::Instance = nullptr;

Base::Document* activeDocument()
{
    return Application::Instance ? Application::Instance->activeDocument() : nullptr;
}

Application::Application() : m_commands(std::make_unique<Base::CommandManager>())
{
    assert(!Instance);
    Instance = this;
}

Application::~Application()
{
    while (!m_documents.empty())
        closeDocument(m_documents.back().get());
    m_commands.reset();
    Instance = nullptr;
}

void Application::setActiveDocument(Base::Document* document)
{
    auto const all = documents();
    bool const isOurs = std::find(all.begin(), all.end(), document) != all.end();
    if (document == m_active || (document && !isOurs))
        return;
    m_active = document;
    signalActiveDocument();
}

Mesh::Document* Application::newDocument(std::string name)
{
    auto document = std::make_unique<Mesh::Document>(std::move(name));
    Mesh::Document* const made = document.get();
    m_documents.push_back(std::move(document));
    setActiveDocument(made);
    return made;
}

void Application::closeDocument(Base::Document* document)
{
    auto const place = std::find_if(m_documents.begin(), m_documents.end(),
                                    [&](auto const& held) { return held.get() == document; });
    if (place == m_documents.end())
        return;
    std::unique_ptr<Base::Document> const closing = std::move(*place);
    m_documents.erase(place);
    if (m_active == document)
        setActiveDocument(m_documents.empty() ? nullptr : m_documents.back().get());
}

std::vector<Base::Document*> Application::documents() const
{
    std::vector<Base::Document*> all;
    for (auto const& document : m_documents)
        all.push_back(document.get());
    return all;
}
