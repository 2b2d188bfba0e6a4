// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/PolygonGraphicObject.h"

#include "display/TLabel.h"

namespace Freecut {

Base::Type PolygonGraphicObject::classTypeId = Base::Type::badType();
Base::PropertyData PolygonGraphicObject::propertyData;

void PolygonGraphicObject::init()
{
    initSubclass(classTypeId, "Freecut::PolygonGraphicObject", "Freecut::VolumeGraphicObject",
                 create);
    propertyData.parent = VolumeGraphicObject::getPropertyDataPtr();
}

void* PolygonGraphicObject::create()
{
    return new PolygonGraphicObject;
}

PolygonGraphicObject::PolygonGraphicObject()
{
    property.setContainer(this);
}

PolygonGraphicObject::~PolygonGraphicObject()
{
    PolygonGraphicObject::freeMemory();
}

Base::Type PolygonGraphicObject::getTypeId() const
{
    return classTypeId;
}

std::string PolygonGraphicObject::getClassName() const
{
    return "Freecut::PolygonGraphicObject";
}

Base::PropertyData const& PolygonGraphicObject::getPropertyData() const
{
    return propertyData;
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
