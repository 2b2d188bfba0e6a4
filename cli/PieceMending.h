// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutOptions.h"
#include "cli/CutPart.h"

#include <functional>

/// Mends the pieces of a part that its job has not looked at, as far as is asked for, and enters
/// what was done to each. A piece without errors stays as it is.
///
/// throws  CutError if a repair failed; Mell::AbortException if the user has cancelled
void mendPieces(CutPart& part, RepairScope scope);

/// Cuts a part. If that fails and the whole shall be mended, a mended copy is cut in its stead: what
/// is open where the cut goes may be closed there. The part in the document stays as it is, and
/// bears what the repair did if it helped.
///
/// throws  what the job throws: of the part as it is, if no repair could help
void cutOrMendFirst(CutPart& part, RepairScope scope, std::function<void()> const& job);
