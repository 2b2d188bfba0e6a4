// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/Persistence.h"
#include "platform/document/PropertyData.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Base {

class Property;

/// An object with properties: those registered in the class's table and those added to this one
/// object at run time (dynamic ones). Properties are owned by the container.
class PropertyContainer : public Persistence
{
public:
    static Type classTypeId;
    static Type getClassTypeId() { return classTypeId; }
    static void init();
    static PropertyData* getPropertyDataPtr() { return &propertyData; }

    PropertyContainer();
    ~PropertyContainer() override;
    PropertyContainer(PropertyContainer const&) = delete;
    PropertyContainer& operator=(PropertyContainer const&) = delete;

    Type getTypeId() const override;
    std::string getClassName() const override;

    // Null, an empty text or 0 stands for a property that the container does not have.
    virtual Property* getPropertyByName(char const* name) const;
    virtual char const* getPropertyName(Property const* property) const;
    virtual void getPropertyMap(std::map<std::string, Property*>& map) const;
    virtual void getPropertyList(std::vector<Property*>& list) const;
    virtual short getPropertyType(Property const* property) const;
    virtual short getPropertyType(char const* name) const;
    virtual char const* getPropertyGroup(Property const* property) const;
    virtual char const* getPropertyGroup(char const* name) const;
    virtual char const* getPropertyDocumentation(Property const* property) const;
    virtual char const* getPropertyDocumentation(char const* name) const;

    /// Makes a property by class name and adds it. Null if the name is taken or the class is no
    /// property; the container is then left as it was.
    virtual Property* addDynamicProperty(char const* className, char const* name, char const* group,
                                         char const* documentation, short type);
    /// Removes and frees a dynamic property; false if there is none of that name.
    virtual bool removeDynamicProperty(char const* name);
    virtual std::vector<std::string> getDynamicPropertyNames() const;
    virtual Property* getDynamicPropertyByName(char const* name) const;
    /// Adds properties of the same names and classes as the other container's dynamic ones,
    /// without their values.
    virtual void addDynamicProperties(PropertyContainer const* container);

    /// All properties' save and restore, in list order.
    virtual void Save(Writer& writer) const;
    virtual void Restore(XMLReader& reader);

    /// Called around the change of a property; these do nothing.
    virtual void onChanged(Property const* property);
    virtual void onBeforeChange(Property const* property);

    /// The class's table.
    virtual PropertyData const& getPropertyData() const;

protected:
    static PropertyData propertyData;

private:
    struct DynamicProperty;

    DynamicProperty const* dynamic(char const* name) const;
    DynamicProperty const* dynamic(Property const* property) const;

    std::vector<std::unique_ptr<DynamicProperty>> m_dynamic;
};

}  // namespace Base
