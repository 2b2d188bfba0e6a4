// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UBox3.h"

namespace Base {
class Document;
}

namespace Freecut {

/// The box around the meshes of all parts of a document, with supports or without, hidden or not;
/// null if there are none.
UBox3<float> boxOfAllParts(Base::Document const& document);

/// The diagonal of a box, at least 0.001 mm: the size that a plane or tool has at first.
float suitableSize(UBox3<float> const& box);

}  // namespace Freecut
