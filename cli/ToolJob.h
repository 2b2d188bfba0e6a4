// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"
#include "cli/ToolScene.h"

/// Cuts a part of a document as the application does, and enters the new parts as its pieces.
///
/// throws  CutError if the cut failed; Mell::AbortException if the user has cancelled. The document
///         is then unchanged
void cutByTool(Mesh::Document& document, CutPart& part, Freecut::VolumeGraphicObject& tool,
               bool keepOriginal);
