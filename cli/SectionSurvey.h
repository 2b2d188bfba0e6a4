// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"
#include "cli/SectionOptions.h"
#include "tools/PlaneGraphicObject.h"

/// Measures where the plane meets a part, and where pins or holes would go, behind a progress
/// display. It cuts a copy, so the part stays as it is.
///
/// throws  Mell::Exception that says why a part cannot be cut; Mell::AbortException if the user
/// cancels
void surveySection(CutPart& part, Freecut::PlaneGraphicObject const& plane,
                   SectionOptions const& options);
