// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"
#include "cutjobs/ResultIntegration.h"
#include "cutjobs/common/CutResultMap.h"

class CutWorker;
namespace Mesh {
class Document;
}

/// Runs the worker's job on this thread.
///
/// throws  CutError if the cut failed; Mell::AbortException if the user has cancelled
void runWorker(CutWorker& worker);

/// Makes parts of the document from the pieces, and enters them as the pieces of their sources.
void integratePieces(Mesh::Document& document, IntegrationRules const& rules,
                     CutResultMap const& pieces, std::vector<CutPart>& parts);
