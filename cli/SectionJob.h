// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"
#include "cli/SectionOptions.h"

namespace Mesh {
class Document;
}

namespace Freecut {
class PlaneGraphicObject;
}

/// Cuts a part of a document as the application does, and enters the new parts as its pieces.
///
/// measuresSection  a plain cut is to tell of its section too
/// throws  CutError if the cut failed; Mell::AbortException if the user has cancelled. The document
///         is then unchanged
void cutByPlane(Mesh::Document& document, CutPart& part, Freecut::PlaneGraphicObject& plane,
                SectionOptions const& options, bool measuresSection);
