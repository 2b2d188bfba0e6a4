// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/CylinderGraphicObject.h"

namespace Freecut {

CylinderGraphicObject::CylinderGraphicObject()
{
    property.setContainer(this);
}

CylinderGraphicObject::~CylinderGraphicObject() = default;

std::string CylinderGraphicObject::getViewProviderName() const
{
    return "Freecut::CylinderViewProvider";
}

}  // namespace Freecut
