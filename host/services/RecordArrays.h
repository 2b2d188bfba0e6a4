// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

/// Copies a mesh, which is only read, as its records have it; like copyArrays() of a kernel.
MeshArrays copyArrays(UMesh<float> const& mesh, StageProgress& progress);
