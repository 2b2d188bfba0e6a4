// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UBox3.h"

#include <vector>

namespace Base {
class Document;
}

namespace Freecut {

/// The box around the meshes of all parts of a document, with supports or without, hidden or not;
/// null if there are none.
UBox3<float> boxOfAllParts(Base::Document const& document);

/// The corners of a box, x running fastest, then y, from the minimum. Those of a null box all lie
/// in the origin.
std::vector<UPoint3<float>> cornersOf(UBox3<float> const& box);

/// The diagonal of a box, at least 0.001 mm: the size that a plane or tool has at first.
float suitableSize(UBox3<float> const& box);

}  // namespace Freecut
