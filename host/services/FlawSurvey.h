// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "host/services/MeshErrors.h"

/// A mesh as a complete check has seen it, in the coordinates of the world.
struct FlawSurvey
{
    MeshArrays mesh;
    MeshErrors errors;
};
