// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint2.h"

namespace Freecut {

/// Products of coordinates up to here count as zero where nothing else is said.
constexpr double relationTolerance = 0.001;

/// How the segments ab and cd relate. Products of coordinates up to the tolerance count as zero.
///
/// returns  0 if they are apart, share an end exactly, or cross so near an end that the crossing
///          rounds to it;
///          1 if they cross properly, with the crossing in p1;
///          less than 0 if they touch: the sum of -1 for c on ab, -3 for d on ab, -5 for a on cd
///          and -9 for b on cd. The first touching point is in p1, the last one after it in p2
int segmentRelation(UPoint2<float> const& a, UPoint2<float> const& b, UPoint2<float> const& c,
                    UPoint2<float> const& d, UPoint2<float>& p1, UPoint2<float>& p2,
                    double tolerance = relationTolerance);

/// Whether r sees p and q under a right angle or more, so that it lies near the segment pq or on
/// it: the scalar product is not above zero, by the tolerance.
bool liesBetween(UPoint2<float> const& r, UPoint2<float> const& p, UPoint2<float> const& q,
                 double tolerance = relationTolerance);

/// The vector product (q - p) x (r - p).
double turnOf(UPoint2<float> const& p, UPoint2<float> const& q, UPoint2<float> const& r);

}  // namespace Freecut
