// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Property.h"

#include <array>

namespace Freecut {

/// The rectangle of a cut plane.
///
/// Key points: 0 the centre, 1 to 3 the corners A, B, C, 4 the fourth corner D, 5 to 8 the
/// midpoints of the sides AB, AD, CD, BC.
class PlaneProperty : public Property
{
public:
    /// The key points stand in the origin.
    PlaneProperty();

    /// A, B, C: three corners in a row, B between the sides B - A and C - B.
    std::vector<UPoint3<float>> getCorners() const;

    /// Stores the corners and no more: the key points follow by updateKeyPoints.
    ///
    /// silent  do not emit the tool's signalChanged
    void setCorners(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c,
                    bool silent);

    /// Derives the nine key points from the corners.
    void updateKeyPoints();

private:
    std::array<UPoint3<float>, 3> planeCorners;
};

}  // namespace Freecut
