// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/CuboidGraphicObject.h"

#include "display/TLabel.h"
#include "tools/SolidMeshes.h"

namespace Freecut {

Base::Type CuboidGraphicObject::classTypeId = Base::Type::badType();
Base::PropertyData CuboidGraphicObject::propertyData;

void CuboidGraphicObject::init()
{
    initSubclass(classTypeId, "Freecut::CuboidGraphicObject", "Freecut::VolumeGraphicObject",
                 create);
    propertyData.parent = VolumeGraphicObject::getPropertyDataPtr();
}

void* CuboidGraphicObject::create()
{
    return new CuboidGraphicObject;
}

CuboidGraphicObject::CuboidGraphicObject()
{
    property.setContainer(this);
}

CuboidGraphicObject::~CuboidGraphicObject()
{
    CuboidGraphicObject::freeMemory();
}

Base::Type CuboidGraphicObject::getTypeId() const
{
    return classTypeId;
}

std::string CuboidGraphicObject::getClassName() const
{
    return "Freecut::CuboidGraphicObject";
}

Base::PropertyData const& CuboidGraphicObject::getPropertyData() const
{
    return propertyData;
}

std::string CuboidGraphicObject::getViewProviderName() const
{
    return "Freecut::CuboidViewProvider";
}

void CuboidGraphicObject::freeMemory()
{
    delete label;
    label = nullptr;
}

UMesh<float>* CuboidGraphicObject::createMesh()
{
    return SolidMeshes::nominal(getViewProvider());
}

std::vector<UMesh<float>*> CuboidGraphicObject::createInandOutMesh()
{
    return SolidMeshes::inAndOut(getViewProvider());
}

}  // namespace Freecut
