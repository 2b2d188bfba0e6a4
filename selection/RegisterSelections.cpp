// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/RegisterSelections.h"

#include "selection/CuboidcutSelection.h"
#include "selection/CylindercutSelection.h"
#include "selection/PlanecutSelection.h"
#include "selection/PolygoncutSelection.h"

namespace Freecut {

void registerSelections()
{
    FreecutSelection::init();
    PlanecutSelection::init();
    VolumeSelection::init();
    PolygoncutSelection::init();
    CylindercutSelection::init();
    CuboidcutSelection::init();
}

}  // namespace Freecut
