// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/PlaneGraphicObject.h"

namespace Freecut {

PlaneGraphicObject::PlaneGraphicObject()
{
    property.setContainer(this);
}

PlaneGraphicObject::~PlaneGraphicObject() = default;

std::string PlaneGraphicObject::getViewProviderName() const
{
    return "Freecut::PlaneViewProvider";
}

}  // namespace Freecut
