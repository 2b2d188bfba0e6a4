// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/document/PropertyData.h"

#include <string_view>

namespace Base {

PropertyData::Entry const* PropertyData::find(char const* name) const
{
    for (PropertyData const* table = this; table; table = table->parent)
        for (std::size_t i = 0; i < table->m_count; ++i)
            if (std::string_view(table->m_entries[i].name) == name)
                return &table->m_entries[i];
    return nullptr;
}

PropertyData::Entry const* PropertyData::find(PropertyContainer const& container,
                                              Property const* property) const
{
    for (PropertyData const* table = this; table; table = table->parent)
        for (std::size_t i = 0; i < table->m_count; ++i)
            if (table->m_entries[i].of(container) == property)
                return &table->m_entries[i];
    return nullptr;
}

std::vector<PropertyData::Entry const*> PropertyData::all() const
{
    std::vector<Entry const*> entries;
    if (parent)
        entries = parent->all();
    for (std::size_t i = 0; i < m_count; ++i)
        entries.push_back(&m_entries[i]);
    return entries;
}

}  // namespace Base
