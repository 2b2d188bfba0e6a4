// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/RegisterViewProviders.h"

#include "display/CuboidViewProvider.h"
#include "display/CylinderViewProvider.h"
#include "display/PlaneViewProvider.h"
#include "display/PolygonViewProvider.h"

namespace Freecut {

void registerViewProviders()
{
    GraphicViewProvider::init();
    PlaneViewProvider::init();
    VolumeViewProvider::init();
    PolygonViewProvider::init();
    CylinderViewProvider::init();
    CuboidViewProvider::init();
}

}  // namespace Freecut
