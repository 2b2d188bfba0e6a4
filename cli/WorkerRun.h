// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"
#include "cutjobs/ResultIntegration.h"
#include "cutjobs/common/CutResultMap.h"

class CutWorker;
namespace Mesh {
class Document;
}

/// Runs the worker's job, which cuts the part alone, on this thread, and takes over its remarks.
///
/// throws  CutError if the cut failed; Mell::AbortException if the user has cancelled
void runWorker(CutWorker& worker, CutPart& part);

/// Makes parts of a document from the pieces, and enters them as those of their source.
void integratePieces(Mesh::Document& document, IntegrationRules const& rules,
                     CutResultMap const& pieces, CutPart& part);
