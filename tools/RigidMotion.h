// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <array>

namespace Freecut {

/// A right-handed frame of unit vectors, square to each other.
struct Axes
{
    /// The frame of a viewer: across and up the screen, and towards the eye.
    ///
    /// direction, up  not parallel; they need not be exactly square or of unit length
    static Axes ofView(UVector3<float> const& direction, UVector3<float> const& up);

    std::array<UVector3<double>, 3> columns;
};

/// A turn and a shift of the world. It counts in double: many of them one after the other stay
/// rigid.
class RigidMotion
{
public:
    /// Nothing moves.
    RigidMotion() = default;
    /// Turns about a point until one frame has become another.
    RigidMotion(UPoint3<float> const& about, Axes const& from, Axes const& to);

    UPoint3<float> operator()(UPoint3<float> const& point) const;
    /// First this one, then the other.
    RigidMotion then(RigidMotion const& next) const;
    RigidMotion inverse() const;

    bool operator==(RigidMotion const&) const = default;

private:
    UVector3<double> turned(UVector3<double> const& v) const;

    /// Row by row.
    std::array<double, 9> m_turn{1, 0, 0, 0, 1, 0, 0, 0, 1};
    UVector3<double> m_shift;
};

}  // namespace Freecut
