// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <vector>

namespace Base {

class Property;
class PropertyContainer;

/// The table of a class's registered properties. It is a static of its class, points at the table
/// of the parent class, and holds no objects: each entry knows how to find its property in an
/// object of the class.
class PropertyData
{
public:
    struct Entry
    {
        char const* name;
        char const* group;
        char const* documentation;
        short type;
        Property* (*of)(PropertyContainer const& container);
    };

    constexpr PropertyData() = default;
    /// entries  a static array, borrowed
    constexpr PropertyData(Entry const* entries, std::size_t count)
        : m_entries(entries), m_count(count)
    {}

    /// The parent class's table, set by init(); null at the root.
    PropertyData const* parent = nullptr;

    /// The entry of that name here or in a parent; null if there is none.
    Entry const* find(char const* name) const;
    /// The entry whose property in `container` is `property`; null if there is none.
    Entry const* find(PropertyContainer const& container, Property const* property) const;
    /// All entries, the parents' first.
    std::vector<Entry const*> all() const;

private:
    Entry const* m_entries = nullptr;
    std::size_t m_count = 0;
};

}  // namespace Base
