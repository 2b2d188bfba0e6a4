// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/document/PropertyContainer.h"

#include "platform/document/DocumentObject.h"
#include "platform/document/Property.h"

namespace Base {

struct PropertyContainer::DynamicProperty
{
    std::string name;
    std::string group;
    std::string documentation;
    short type;
    std::unique_ptr<Property> property;
};

constinit Type PropertyContainer::classTypeId;
constinit PropertyData PropertyContainer::propertyData;

void PropertyContainer::init()
{
    initSubclass(classTypeId, "Base::PropertyContainer", "Base::Persistence", nullptr);
}

PropertyContainer::PropertyContainer() = default;
PropertyContainer::~PropertyContainer() = default;

Type PropertyContainer::getTypeId() const
{
    return classTypeId;
}

std::string PropertyContainer::getClassName() const
{
    return "Base::PropertyContainer";
}

PropertyContainer::DynamicProperty const* PropertyContainer::dynamic(char const* name) const
{
    for (auto const& dynamic : m_dynamic)
        if (dynamic->name == name)
            return dynamic.get();
    return nullptr;
}

PropertyContainer::DynamicProperty const* PropertyContainer::dynamic(Property const* property) const
{
    for (auto const& dynamic : m_dynamic)
        if (dynamic->property.get() == property)
            return dynamic.get();
    return nullptr;
}

Property* PropertyContainer::getPropertyByName(char const* name) const
{
    if (auto const* const entry = getPropertyData().find(name))
        return entry->of(*this);
    return getDynamicPropertyByName(name);
}

char const* PropertyContainer::getPropertyName(Property const* property) const
{
    if (auto const* const entry = getPropertyData().find(*this, property))
        return entry->name;
    auto const* const added = dynamic(property);
    return added ? added->name.c_str() : nullptr;
}

void PropertyContainer::getPropertyMap(std::map<std::string, Property*>& map) const
{
    for (auto const* const entry : getPropertyData().all())
        map[entry->name] = entry->of(*this);
    for (auto const& added : m_dynamic)
        map[added->name] = added->property.get();
}

void PropertyContainer::getPropertyList(std::vector<Property*>& list) const
{
    for (auto const* const entry : getPropertyData().all())
        list.push_back(entry->of(*this));
    for (auto const& added : m_dynamic)
        list.push_back(added->property.get());
}

short PropertyContainer::getPropertyType(Property const* property) const
{
    char const* const name = getPropertyName(property);
    return name ? getPropertyType(name) : 0;
}

short PropertyContainer::getPropertyType(char const* name) const
{
    if (auto const* const entry = getPropertyData().find(name))
        return entry->type;
    auto const* const added = dynamic(name);
    return added ? added->type : 0;
}

char const* PropertyContainer::getPropertyGroup(Property const* property) const
{
    char const* const name = getPropertyName(property);
    return name ? getPropertyGroup(name) : nullptr;
}

char const* PropertyContainer::getPropertyGroup(char const* name) const
{
    if (auto const* const entry = getPropertyData().find(name))
        return entry->group;
    auto const* const added = dynamic(name);
    return added ? added->group.c_str() : nullptr;
}

char const* PropertyContainer::getPropertyDocumentation(Property const* property) const
{
    char const* const name = getPropertyName(property);
    return name ? getPropertyDocumentation(name) : nullptr;
}

char const* PropertyContainer::getPropertyDocumentation(char const* name) const
{
    if (auto const* const entry = getPropertyData().find(name))
        return entry->documentation;
    auto const* const added = dynamic(name);
    return added ? added->documentation.c_str() : nullptr;
}

Property* PropertyContainer::addDynamicProperty(char const* className, char const* name,
                                                char const* group, char const* documentation,
                                                short type)
{
    if (getPropertyByName(name))
        return nullptr;
    std::unique_ptr<BaseClass> made(Type::createInstance(className));
    if (!dynamic_cast<Property*>(made.get()))
        return nullptr;
    std::unique_ptr<Property> property(static_cast<Property*>(made.release()));
    property->setContainer(dynamic_cast<DocumentObject*>(this));
    m_dynamic.push_back(std::make_unique<DynamicProperty>(
        DynamicProperty{name, group, documentation, type, std::move(property)}));
    return m_dynamic.back()->property.get();
}

bool PropertyContainer::removeDynamicProperty(char const* name)
{
    return std::erase_if(m_dynamic, [&](auto const& added) { return added->name == name; }) > 0;
}

std::vector<std::string> PropertyContainer::getDynamicPropertyNames() const
{
    std::vector<std::string> names;
    for (auto const& added : m_dynamic)
        names.push_back(added->name);
    return names;
}

Property* PropertyContainer::getDynamicPropertyByName(char const* name) const
{
    auto const* const added = dynamic(name);
    return added ? added->property.get() : nullptr;
}

void PropertyContainer::addDynamicProperties(PropertyContainer const* container)
{
    for (auto const& added : container->m_dynamic)
        addDynamicProperty(added->property->getClassName().c_str(), added->name.c_str(),
                           added->group.c_str(), added->documentation.c_str(), added->type);
}

void PropertyContainer::Save(Writer& writer) const
{
    std::vector<Property*> properties;
    getPropertyList(properties);
    for (Property const* const property : properties)
        property->save(writer);
}

void PropertyContainer::Restore(XMLReader& reader)
{
    std::vector<Property*> properties;
    getPropertyList(properties);
    for (Property* const property : properties)
        property->restore(reader);
}

void PropertyContainer::onChanged(Property const* property) {}

void PropertyContainer::onBeforeChange(Property const* property) {}

PropertyData const& PropertyContainer::getPropertyData() const
{
    return propertyData;
}

}  // namespace Base
