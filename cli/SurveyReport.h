// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"
#include "cli/SectionOptions.h"
#include "connectors/SectionSurvey.h"
#include "tools/PlaneGraphicObject.h"

/// Measures where the plane meets a part, and where connectors would be, behind a progress display.
///
/// throws  Mell::Exception that says why a part cannot be cut, CutError for a connector that is to
///         be left out and is not there, UsageError for one that is not to stand in the plane;
///         Mell::AbortException if the user cancels
SectionSurvey surveyOf(CutPart const& part, Freecut::PlaneGraphicObject const& plane,
                       SectionOptions const& options);

/// Enters what a survey found as the facts of a part.
void enterFacts(CutPart& part, SectionSurvey const& survey, ConnectorOptions const& connectors);

/// Enters what a cut would have to say.
void enterRemarks(CutPart& part, SectionSurvey const& survey, ConnectorOptions const& connectors);
