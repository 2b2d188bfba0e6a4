// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutOptions.h"
#include "cli/CutPart.h"
#include "cli/PieceFiles.h"
#include "cli/streaming/FacetFile.h"
#include "cli/streaming/StreamPlanes.h"

#include <functional>
#include <memory>
#include <string>

/// The format of what is cut while it is read.
Formats::MeshFormat const& streamedFormat();

/// A part that nothing has been read of.
CutPart partToStream(std::string const& file);

/// Makes the planes of a part, from its file if need be. Throws UsageError.
using PlanesFor = std::function<std::unique_ptr<StreamPlanes>(FacetFile const&)>;

/// Reads a part and cuts it meanwhile, behind a progress display. Its pieces are complete but for
/// their names.
///
/// soleEnding  what follows the part's name in that of its only piece; several have numbers
/// throws      CutError if it cannot be cut there; Formats::FileError; UsageError;
///             Mell::AbortException if the user has cancelled
void cutWhileReading(CutPart& part, PlanesFor const& planesFor, std::string const& soleEnding,
                     CutOptions const& options, PieceFiles& files);
