// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/RegisterSelections.h"

#include "selection/PlanecutSelection.h"
#include "selection/VolumeSelection.h"

namespace Freecut {

void registerSelections()
{
    FreecutSelection::init();
    PlanecutSelection::init();
    VolumeSelection::init();
}

}  // namespace Freecut
