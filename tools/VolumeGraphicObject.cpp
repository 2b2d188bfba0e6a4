// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/VolumeGraphicObject.h"

#include "tools/SolidMeshes.h"

#include <QtGlobal>

namespace Freecut {

VolumeGraphicObject::VolumeGraphicObject() = default;

VolumeGraphicObject::~VolumeGraphicObject() = default;

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
