// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <span>

/// The frame of a section plane. Its normal N points to the upper side. Local coordinates (u, v, w)
/// have their origin in the plane's centre and w along N; what runs anticlockwise seen from the tip
/// of N has positive area in (u, v).
class PlaneFrame
{
public:
    /// keyPoints  the centre and the four corners of the plane's rectangle, in order
    explicit PlaneFrame(std::span<UPoint3<float> const, 5> keyPoints);

    UPoint3<float> const& centre() const { return m_centre; }
    /// D1, along the side from the first to the second corner.
    UVector3<float> const& direction1() const { return m_direction1; }
    /// D2, along the side from the second to the third corner.
    UVector3<float> const& direction2() const { return m_direction2; }
    /// N, D1 crossed with D2.
    UVector3<float> const& normal() const { return m_normal; }

    UPoint3<float> toPlaneLocal(UPoint3<float> const& p) const;
    /// The inverse, rounded once: far from the origin too it is as exact as a point can be.
    UPoint3<float> fromPlaneLocal(UPoint3<float> const& local) const;

private:
    UPoint3<float> m_centre;
    UVector3<float> m_direction1;
    UVector3<float> m_direction2;
    UVector3<float> m_normal;
    UVector3<float> m_u;
};
