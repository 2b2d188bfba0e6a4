// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"
#include "cli/ZCutOptions.h"

namespace Mesh {
class Document;
}

/// Cuts the parts of the active document as the application does, and enters the new parts as their
/// pieces. Events are handled meanwhile.
///
/// heights  one for each part
/// throws   CutError if the cut failed; Mell::AbortException if the user has cancelled. The
/// document
///          is then unchanged
void runZCutJob(Mesh::Document& document, std::vector<CutPart>& parts,
                std::vector<float> const& heights, ZCutOptions const& options);
