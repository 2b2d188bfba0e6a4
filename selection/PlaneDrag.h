// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UBox3.h"
#include "tools/PlanePlacement.h"

namespace Freecut {

/// Three corners of a rectangle in a row. The fourth one is c0 + c2 - c1, the centre is the middle
/// of c0 and c2.
struct PlaneCorners
{
    UPoint3<float> c0;
    UPoint3<float> c1;
    UPoint3<float> c2;

    bool operator==(PlaneCorners const&) const = default;
};

/// Extents of a rectangle: along c2 - c1, and along c1 - c0.
PlaneSize sizeOf(PlaneCorners const& plane);

/// The handles of a plane, as its key points are numbered.
namespace PlaneHandle {
inline constexpr int center = 0;
inline constexpr int firstCorner = 1;
inline constexpr int firstEdge = 5;
inline constexpr int count = 9;
}  // namespace PlaneHandle

/// A plane after a plain drag of one of its handles: the centre moves it, a corner turns it in
/// itself, an edge tilts it about its middle line along that edge. Turns and tilts keep its centre,
/// and all keep its size. They count in double: the small angles of a mouse's steps do not tear the
/// rectangle apart.
///
/// delta  the way of the mouse in the world
PlaneCorners draggedPlane(PlaneCorners const& plane, int handle, UVector3<float> const& delta);

/// A plane after a drag that changes its size: a corner moves the two edges that meet in it, an
/// edge itself alone. The centre changes nothing.
PlaneCorners resizedPlane(PlaneCorners const& plane, int handle, UVector3<float> const& delta);

/// Whether a plane, taken as endless, goes through a box: corners of the box lie above it and
/// others do not.
bool isValidMove(UBox3<float> const& box, PlaneCorners const& plane);

}  // namespace Freecut
