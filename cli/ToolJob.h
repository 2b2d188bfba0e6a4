// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"
#include "cli/ToolScene.h"

/// Cuts the parts of a document as the application does, and enters the new parts as their pieces.
///
/// throws  CutError if the cut failed; Mell::AbortException if the user has cancelled. The document
///         is then unchanged
void runToolJob(Mesh::Document& document, std::vector<CutPart>& parts, DrawnTool const& tool,
                bool keepOriginal);
