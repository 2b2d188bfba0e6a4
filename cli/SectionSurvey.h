// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"
#include "cli/SectionOptions.h"
#include "tools/PlaneGraphicObject.h"

/// Measures where the plane meets each part, and where pins or holes would go, behind a progress
/// display. It cuts copies, so the parts stay as they are.
///
/// throws  Mell::Exception that says why a part cannot be cut; Mell::AbortException if the user
/// cancels
void surveySections(std::vector<CutPart>& parts, Freecut::PlaneGraphicObject const& plane,
                    SectionOptions const& options);
