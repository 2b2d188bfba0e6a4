// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/parts/PartEdits.h"

/// Copies of parts in a row.
namespace PartRow {

constexpr int mostCopies = 500;

struct Row
{
    int copies = 1;
    /// 0, 1 or 2.
    int axis = 0;
    /// Between the boxes of one and the next, in millimetres; negative where they overlap.
    double gapMm = 5;
};

/// Puts copies of parts, taken together, beside them along an axis, each the same way from the last,
/// as one named undo step. They share the meshes of the originals, are in their groups, and are
/// selected instead of them. Without parts, with a number of copies outside 1 to mostCopies, or with
/// a gap that is no number, it does nothing and returns false.
///
/// parts   of the document, each once
/// thread  the user interface thread
bool duplicate(Mesh::Document& document, PartEdits::Parts const& parts, Row const& row);

}  // namespace PartRow
