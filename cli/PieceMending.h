// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutOptions.h"
#include "cli/CutPart.h"

/// Mends the pieces of a part that its job has not looked at, as far as is asked for, and enters
/// what was done to each. A piece without errors stays as it is.
///
/// throws  CutError if a repair failed; Mell::AbortException if the user has cancelled
void mendPieces(CutPart& part, RepairScope scope);
