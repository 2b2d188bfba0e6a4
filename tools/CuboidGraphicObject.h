// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/CentredGraphicObject.h"
#include "tools/CuboidProperty.h"
#include "tools/ToolTypeEntry.h"

namespace Freecut {

/// A rectangular prism.
class CuboidGraphicObject : public ToolTypeEntry<CuboidGraphicObject, CentredGraphicObject>
{
public:
    static constexpr char const* typeName = "Freecut::CuboidGraphicObject";

    CuboidGraphicObject();
    ~CuboidGraphicObject() override;

    std::string getViewProviderName() const override;

    VolumeProperty& getVolumeProperty() override { return property; }
    CuboidProperty& getProperty() { return property; }
    CuboidProperty const& getProperty() const { return property; }

private:
    CuboidProperty property;
};

}  // namespace Freecut
