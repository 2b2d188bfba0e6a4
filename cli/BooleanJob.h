// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/BooleanOptions.h"
#include "platform/mesh/MeshKernel.h"

#include <memory>
#include <string>
#include <vector>

/// A piece that a boolean has made.
struct BooleanPiece
{
    std::string name;
    std::unique_ptr<MeshKernel> kernel;
};

/// Combines two solids behind a progress display. Pieces without triangles are left out.
///
/// name    what the pieces' names begin with
/// throws  Mell::Exception that says what is wrong with a solid; Mell::AbortException if the user
///         cancels
std::vector<BooleanPiece> runBooleanJob(MeshKernel& a, MeshKernel& b, BooleanOperation operation,
                                        std::string const& name);
