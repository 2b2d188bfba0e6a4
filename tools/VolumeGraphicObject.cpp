// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/VolumeGraphicObject.h"

#include "tools/SolidMeshes.h"

#include <QtGlobal>

namespace Freecut {

Base::Type VolumeGraphicObject::classTypeId = Base::Type::badType();
Base::PropertyData VolumeGraphicObject::propertyData;

void VolumeGraphicObject::init()
{
    initSubclass(classTypeId, "Freecut::VolumeGraphicObject", "Freecut::GraphicObject", create);
    propertyData.parent = GraphicObject::getPropertyDataPtr();
}

void* VolumeGraphicObject::create()
{
    return new VolumeGraphicObject;
}

VolumeGraphicObject::VolumeGraphicObject() = default;

VolumeGraphicObject::~VolumeGraphicObject() = default;

Base::Type VolumeGraphicObject::getTypeId() const
{
    return classTypeId;
}

std::string VolumeGraphicObject::getClassName() const
{
    return "Freecut::VolumeGraphicObject";
}

Base::PropertyData const& VolumeGraphicObject::getPropertyData() const
{
    return propertyData;
}

std::string VolumeGraphicObject::getViewProviderName() const
{
    return "Freecut::VolumeViewProvider";
}

VolumeProperty& VolumeGraphicObject::getVolumeProperty()
{
    qFatal("A solid tool without a shape was asked for its parameters.");
}

UMesh<float>* VolumeGraphicObject::createMesh()
{
    return SolidMeshes::nominal(getViewProvider());
}

std::vector<UMesh<float>*> VolumeGraphicObject::createInandOutMesh()
{
    return SolidMeshes::inAndOut(getViewProvider());
}

}  // namespace Freecut
