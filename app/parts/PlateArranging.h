// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"

#include <array>
#include <vector>

/// Puts parts side by side on the build plate, by their boxes.
///
/// thread  the user interface thread
namespace PlateArranging {

using Parts = std::vector<Mesh::DocumentObject*>;

/// Of a printer: width, depth and height, in millimetres; the plate is centred at the origin.
using Volume = std::array<double, 3>;

/// What rounding may take of a room that fits to the bit.
constexpr double slackMm = 1e-4;

/// By how much a box is larger than a volume, along its own axes; 0 where it fits. Of the two ways
/// in which it can stand, by a quarter turn, that counts which has less to spare.
Volume excess(UBox3<float> const& box, Volume const& volume);
inline bool fits(Volume const& excess)
{
    return excess == Volume{};
}
/// Whether a box lies within the volume where it is.
bool isInside(UBox3<float> const& box, Volume const& volume);

struct Outcome
{
    /// Larger than the plate or the volume; they stay where they are.
    Parts tooLarge;
    /// There was no room left for these; they stand on further plates at the right.
    Parts onFurtherPlates;
};

/// Lets the parts down onto the plate and puts them in rows, with a gap between them, and the rows
/// into the middle: one undo step, "Arrange". They are not turned. The same parts give the same places.
///
/// returns  false if nothing moved
/// cost     O(n log n) for n parts, and a pass over the vertices of what moves
bool arrange(Mesh::Document& document, Parts const& parts, Volume const& volume, double gapMm,
             Outcome& outcome);

}  // namespace PlateArranging
