// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/PolygonGraphicObject.h"

#include "display/TLabel.h"

namespace Freecut {

PolygonGraphicObject::PolygonGraphicObject()
{
    property.setContainer(this);
}

PolygonGraphicObject::~PolygonGraphicObject()
{
    PolygonGraphicObject::freeMemory();
}

std::string PolygonGraphicObject::getViewProviderName() const
{
    return "Freecut::PolygonViewProvider";
}

void PolygonGraphicObject::freeMemory()
{
    property.getEdgeRecords().clear();
    for (TLabel* const label : pointLabels)
        delete label;
    pointLabels.clear();
}

}  // namespace Freecut
