// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/ConnectorChoices.h"

#include "platform/document/MeshDocumentObject.h"

#include <utility>

namespace Freecut {

ConnectorChoices::Key ConnectorChoices::keyOf(Mesh::DocumentObject const* part) const
{
    auto const life = m_lives.find(part);
    return {part, life == m_lives.end() ? 0 : life->second};
}

ConnectorChoice ConnectorChoices::of(Mesh::DocumentObject const* part) const
{
    if (!m_all)
        return {};
    auto const choice = m_all->find(keyOf(part));
    return choice == m_all->end() ? ConnectorChoice() : choice->second;
}

void ConnectorChoices::set(Mesh::DocumentObject const* part, ConnectorChoice const& choice)
{
    All all = m_all ? *m_all : All();
    all[keyOf(part)] = choice;
    std::erase_if(all, [](auto const& entry) { return entry.second.isEmpty(); });
    m_all = all.empty() ? nullptr : std::make_shared<All const>(std::move(all));
}

void ConnectorChoices::setState(std::shared_ptr<void const> const& state)
{
    m_all = std::static_pointer_cast<All const>(state);
}

}  // namespace Freecut
