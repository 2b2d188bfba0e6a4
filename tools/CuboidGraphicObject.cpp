// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/CuboidGraphicObject.h"

namespace Freecut {

CuboidGraphicObject::CuboidGraphicObject()
{
    property.setContainer(this);
}

CuboidGraphicObject::~CuboidGraphicObject() = default;

std::string CuboidGraphicObject::getViewProviderName() const
{
    return "Freecut::CuboidViewProvider";
}

}  // namespace Freecut
