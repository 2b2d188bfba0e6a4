// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutOptions.h"
#include "cli/CutPart.h"
#include "cli/PieceFiles.h"

#include <vector>

/// Where a part is cut that is not known yet.
struct StreamHeights
{
    /// Ascending.
    std::vector<double> heights;
    /// Where it is above zero, the part is cut into slices of this height from its lowest point on.
    float distance = 0;
};

/// Throws UsageError if what is asked for needs parts in memory.
void requireStreamable(CutOptions const& options);

/// Whether one of the files would not fit into memory, and all of them can be cut while they are read.
/// What cannot be looked at is left to the run.
bool mustBeStreamed(CutOptions const& options);

/// A part that nothing has been read of.
CutPart partToStream(std::string const& file);

/// Reads a part and cuts it at heights meanwhile, behind a progress display. Its pieces are complete but
/// for their names.
///
/// throws  CutError if it cannot be cut there; Formats::FileError; UsageError;
///         Mell::AbortException if the user has cancelled
void cutWhileReading(CutPart& part, StreamHeights const& where, CutOptions const& options,
                     PieceFiles& files);
