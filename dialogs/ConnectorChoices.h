// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorChoice.h"
#include "selection/EditsBeside.h"

#include <map>

namespace Base {
class DocumentObject;
}
namespace Mesh {
class DocumentObject;
}

namespace Freecut {

/// What a person has changed by hand about the connectors of each part. Parts are named by it,
/// never looked at.
class ConnectorChoices
{
public:
    /// Empty for a part of which nothing was changed.
    ConnectorChoice of(Mesh::DocumentObject const* part) const;
    void set(Mesh::DocumentObject const* part, ConnectorChoice const& choice);
    void clear() { m_all.reset(); }
    bool isEmpty() const { return !m_all; }

    /// An object of the document goes. What is said of it holds no more, even if states from before
    /// are taken up: another part may come to stand where it was in memory.
    void objectGoes(Base::DocumentObject const* object) { ++m_lives[object]; }

    /// All of them, as something that never changes; null for nothing.
    std::shared_ptr<void const> state() const { return m_all; }
    void setState(std::shared_ptr<void const> const& state);

private:
    struct Key
    {
        Base::DocumentObject const* part;
        int life;
        auto operator<=>(Key const&) const = default;
    };
    using All = std::map<Key, ConnectorChoice>;
    Key keyOf(Mesh::DocumentObject const* part) const;

    std::shared_ptr<All const> m_all;
    /// How many objects have gone from a place in memory.
    std::map<Base::DocumentObject const*, int> m_lives;
};

}  // namespace Freecut
