// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint2.h"
#include "platform/geometry/UPoint3.h"
#include "tools/TeethEdge.h"

#include <vector>

// How the outline of a polygon tool grows. Vertex i starts edge i; the last edge runs back to
// vertex 0.
namespace Freecut {

/// At which index a new vertex belongs: in the edge that it is nearest to. A point beyond a corner
/// goes into the edge that it lies most along. The third vertex goes to the side on which the
/// outline runs anticlockwise about extrudeVector.
int insertionIndex(std::vector<UPoint3<float>> const& vertices, UPoint3<float> const& point,
                   UVector3<float> const& extrudeVector);

/// How two segments on the screen touch: less than 0 if an end of one lies on the other, 1 if they
/// cross properly, else 0; segments that share an end do not touch. Products of coordinates up to
/// 0.01 count as zero.
int segmentContact(UPoint2<float> const& a, UPoint2<float> const& b, UPoint2<float> const& c,
                   UPoint2<float> const& d);

/// Whether a vertex of the outline lies on an edge that is not its own. The closing edge does not
/// count, and neither do proper crossings: those are resolved when the solid is made.
///
/// points  as they are seen on the screen
bool touchesItself(std::vector<UPoint2<float>> const& points);

/// The edge that a vertex at an index would divide.
inline int dividedEdge(int edgeCount, int index)
{
    return (edgeCount + index - 1) % edgeCount;
}

/// The outline with its confirmed teeth that there would be with one more vertex, in thousandths of
/// a millimetre. The teeth of the edge that is divided are left out.
///
/// edges  at least two
std::vector<UPoint3<float>> trialOutline(std::vector<UPoint3<float>> vertices,
                                         std::vector<TeethEdge> edges, UPoint3<float> const& point,
                                         int index);

}  // namespace Freecut
