// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/document/BaseClass.h"

#include <unordered_map>
#include <vector>

namespace Base {

namespace {

struct TypeEntry
{
    std::string name;
    unsigned parent = 0;
    void* (*create)() = nullptr;
};

struct TypeTable
{
    // Entry 0 is the unset value.
    std::vector<TypeEntry> entries{TypeEntry()};
    std::unordered_map<std::string, unsigned> byName;
};

TypeTable& typeTable()
{
    static TypeTable table;
    return table;
}

}  // namespace

Type Type::fromName(std::string const& name)
{
    TypeTable const& table = typeTable();
    auto const found = table.byName.find(name);
    return found == table.byName.end() ? badType() : Type(found->second);
}

BaseClass* Type::createInstance(std::string const& name)
{
    Type const type = fromName(name);
    auto* const create = typeTable().entries[type.m_index].create;
    return create ? static_cast<BaseClass*>(create()) : nullptr;
}

std::string Type::getName() const
{
    return typeTable().entries[m_index].name;
}

Type Type::getParent() const
{
    return Type(typeTable().entries[m_index].parent);
}

bool Type::isDerivedFrom(Type ancestor) const
{
    if (ancestor.isBad())
        return false;
    for (Type type = *this; !type.isBad(); type = type.getParent())
        if (type == ancestor)
            return true;
    return false;
}

constinit Type BaseClass::classTypeId;

Type BaseClass::getTypeId() const
{
    return classTypeId;
}

std::string BaseClass::getClassName() const
{
    return "Base::BaseClass";
}

void BaseClass::initSubclass(Type& id, char const* name, char const* parent, void* (*create)())
{
    TypeTable& table = typeTable();
    auto const [entry, isNew] = table.byName.try_emplace(name, unsigned(table.entries.size()));
    if (isNew)
        table.entries.push_back({name, Type::fromName(parent).m_index, create});
    id = Type(entry->second);
}

}  // namespace Base
