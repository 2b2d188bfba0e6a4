// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/CentredGraphicObject.h"
#include "tools/CylinderProperty.h"
#include "tools/ToolTypeEntry.h"

namespace Freecut {

/// A round prism, with an optional key.
class CylinderGraphicObject : public ToolTypeEntry<CylinderGraphicObject, CentredGraphicObject>
{
public:
    static constexpr char const* typeName = "Freecut::CylinderGraphicObject";

    CylinderGraphicObject();
    ~CylinderGraphicObject() override;

    std::string getViewProviderName() const override;

    VolumeProperty& getVolumeProperty() override { return property; }
    CylinderProperty& getProperty() { return property; }
    CylinderProperty const& getProperty() const { return property; }

private:
    CylinderProperty property;
};

}  // namespace Freecut
