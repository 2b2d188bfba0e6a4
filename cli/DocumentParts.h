// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"

namespace Mesh {
class Document;
}

/// Moves the parts into a document, under names that are all different, and describes them.
///
/// measure  fill in the facts, for a report
std::vector<CutPart> addParts(Mesh::Document& document, std::vector<SourcePart>& sources,
                              bool measure);

/// The parts of the document, in the same order.
std::vector<Mesh::DocumentObject*> objectsOf(std::vector<CutPart> const& parts);
