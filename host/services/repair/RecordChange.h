// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

/// Makes a kernel's mesh another, whose triangles keep their records where they are the same.
///
/// before  the mesh as it is; if `mesh` does not begin with the points of it, all records are new
/// mesh    what it becomes; points that no triangle uses are left out
/// throws  what the progress function throws; the mesh is then as it was
/// cost    a few passes over the records, and new ones for what has changed
void changeRecords(MeshKernel& kernel, MeshArrays const& before, MeshArrays mesh,
                   StageProgress& progress);
