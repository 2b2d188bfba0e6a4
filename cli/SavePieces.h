// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"
#include "cli/PieceFiles.h"
#include "cli/PieceOptions.h"

/// Gives every piece its form and its file and writes it.
///
/// throws  Formats::FileError, before anything is written if a file is in the way;
///         Mell::AbortException if the user cancels
void writePieces(std::vector<CutPart>& parts, PieceOptions const& options, PieceFiles& files);

/// Lets the parts themselves follow the pieces that they were cut into, except where they come from
/// the very file that they would go to.
///
/// files  null if nothing is written
void appendOriginals(std::vector<CutPart>& parts, PieceOptions const& options,
                     PieceFiles const* files);
