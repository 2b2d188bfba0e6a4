// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/view/BuildVolumeChanges.h"

BuildVolumeChanges& BuildVolumeChanges::instance()
{
    static BuildVolumeChanges changes;
    return changes;
}
