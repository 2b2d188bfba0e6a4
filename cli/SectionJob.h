// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"
#include "cli/SectionOptions.h"
#include "connectors/SectionSurvey.h"

namespace Mesh {
class Document;
}

namespace Freecut {
class PlaneGraphicObject;
}

/// Cuts a part of a document as the application does, and enters the new parts as its pieces.
///
/// survey           null, or says where pins or holes stand
/// measuresSection  a plain cut tells of its section too
/// throws  CutError if the cut failed; Mell::AbortException if the user has cancelled. The document
///         is then unchanged
void cutByPlane(Mesh::Document& document, CutPart& part, Freecut::PlaneGraphicObject& plane,
                SectionOptions const& options, SectionSurvey const* survey, bool measuresSection);
