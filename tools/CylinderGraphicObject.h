// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/CentredGraphicObject.h"
#include "tools/CylinderProperty.h"

namespace Freecut {

/// A round prism, with an optional key.
class CylinderGraphicObject : public CentredGraphicObject
{
public:
    static Base::Type classTypeId;
    static Base::Type getClassTypeId() { return classTypeId; }
    static void init();
    static void* create();
    static Base::PropertyData* getPropertyDataPtr() { return &propertyData; }

    CylinderGraphicObject();
    ~CylinderGraphicObject() override;

    Base::Type getTypeId() const override;
    std::string getClassName() const override;
    Base::PropertyData const& getPropertyData() const override;
    std::string getViewProviderName() const override;

    VolumeProperty& getVolumeProperty() override { return property; }
    CylinderProperty& getProperty() { return property; }
    CylinderProperty const& getProperty() const { return property; }

protected:
    static Base::PropertyData propertyData;

private:
    CylinderProperty property;
};

}  // namespace Freecut
