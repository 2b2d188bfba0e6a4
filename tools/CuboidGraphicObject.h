// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/CentredGraphicObject.h"
#include "tools/CuboidProperty.h"

namespace Freecut {

/// A rectangular prism.
class CuboidGraphicObject : public CentredGraphicObject
{
public:
    static Base::Type classTypeId;
    static Base::Type getClassTypeId() { return classTypeId; }
    static void init();
    static void* create();
    static Base::PropertyData* getPropertyDataPtr() { return &propertyData; }

    CuboidGraphicObject();
    ~CuboidGraphicObject() override;

    Base::Type getTypeId() const override;
    std::string getClassName() const override;
    Base::PropertyData const& getPropertyData() const override;
    std::string getViewProviderName() const override;

    VolumeProperty& getVolumeProperty() override { return property; }
    CuboidProperty& getProperty() { return property; }
    CuboidProperty const& getProperty() const { return property; }

protected:
    static Base::PropertyData propertyData;

private:
    CuboidProperty property;
};

}  // namespace Freecut
