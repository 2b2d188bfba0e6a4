// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"
#include "cli/SourceFiles.h"

namespace Mesh {
class Document;
}

/// Moves a part into a document, under a name that no other part has, and describes it.
///
/// measure  fill in the facts, for a report
CutPart addPart(Mesh::Document& document, SourcePart source, bool measure);

/// A part of a document as a piece of what it was cut from.
CutPiece pieceOf(Mesh::DocumentObject const& object);
