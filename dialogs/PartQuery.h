// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

namespace Base {
class Document;
}
namespace Mesh {
class DocumentObject;
}

/// The parts that a cut is for.
namespace Freecut::PartQuery {

struct Choice
{
    /// "Selected parts", not "All parts". All parts are those of the document, hidden ones too.
    bool isOnlySelected = false;
    /// The parts give way to their pieces.
    bool removesOriginals = false;
};

/// The parts that are chosen; none without a mesh document.
std::vector<Mesh::DocumentObject*> chosenParts(Base::Document const* document, bool isOnlySelected);

/// The parts to cut. Where supports would be lost it asks first, once; where there is no part it
/// says what to do. Empty if there is nothing to cut or the user wants no cut.
std::vector<Mesh::DocumentObject*> askForParts(Base::Document const* document,
                                               Choice const& choice);

}  // namespace Freecut::PartQuery
