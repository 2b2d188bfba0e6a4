// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "host/services/MeshErrors.h"
#include "platform/services/Repair.h"

/// The mesh with its closed shells facing the right way, as far as they cross nothing. A shell that
/// bounds a solid turned inside out is turned; one that lies in solid on both sides is left out: it
/// counts the solid in it once more, and turning it would hollow that out.
///
/// errors  of the mesh, with its tree
/// report  gets what was done, and what was left because the surface is open nearby
MeshArrays withMendedShells(MeshArrays const& mesh, MeshErrors const& errors,
                            Repair::Report& report, StageProgress& progress);
