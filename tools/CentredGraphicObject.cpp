// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/CentredGraphicObject.h"

#include "display/TLabel.h"

namespace Freecut {

CentredGraphicObject::~CentredGraphicObject()
{
    delete label;
}

void CentredGraphicObject::freeMemory()
{
    delete label;
    label = nullptr;
}

}  // namespace Freecut
