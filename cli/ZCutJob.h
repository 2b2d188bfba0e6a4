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

/// The heights that cut what fills a box into slices. Throws UsageError if there would be too many.
std::vector<double> heightsOfSlices(UBox3<float> const& box, float distance);

/// Cuts a part into slices behind a progress display, and enters these as its pieces, from above.
///
/// distance  from the part's lowest point to the first plane, and from plane to plane
/// throws    as cutAtHeight(); UsageError for more slices than there can be
void cutIntoSlices(CutPart& part, float distance);
