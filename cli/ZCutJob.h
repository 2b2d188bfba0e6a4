// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"
#include "cli/ZCutOptions.h"

namespace Mesh {
class Document;
}

/// Cuts a part of the active document as the application does, and enters the new parts as its
/// pieces, with what a repair did to each. Events are handled meanwhile.
///
/// throws  CutError that says why the cut failed; Mell::AbortException if the user has cancelled.
///         The document is then unchanged
void cutAtHeight(Mesh::Document& document, CutPart& part, float height, RepairScope repair);
