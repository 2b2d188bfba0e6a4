// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/BooleanOptions.h"
#include "cli/CutPart.h"

/// Combines two solids behind a progress display, and enters what comes out as pieces of the first
/// one, from which they take their names. Those without triangles are left out.
///
/// throws  Mell::Exception that says what is wrong with a solid; Mell::AbortException if the user
///         cancels
void combineParts(CutPart& a, CutPart const& b, BooleanOperation operation);
