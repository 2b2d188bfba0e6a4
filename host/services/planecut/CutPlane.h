// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <array>
#include <cmath>

/// The cutting plane: exact signs of points against it, section points on edges, and the plane's
/// own two coordinates.
///
/// The plane is the one through the three corners of the first triangle of a plane mesh. Its normal
/// N follows from their order. The plane's coordinates are two of the world's, taken so that what
/// runs anticlockwise seen against N runs anticlockwise in them; no rounding is involved.
class CutPlane
{
public:
    /// throws  Mell::Exception if the mesh has no triangle or its corners lie on one line
    explicit CutPlane(MeshKernel const& planeKernel);

    /// +1 on the side to which N points, -1 on the other, 0 in the plane. Exact.
    int sideOf(UPoint3<float> const& p) const
    {
        if (m_isAxisParallel) {
            float const c = p[m_dropped];
            return c > m_level ? m_upSign : c < m_level ? -m_upSign : 0;
        }
        double const x = p.X() - m_origin[0], y = p.Y() - m_origin[1], z = p.Z() - m_origin[2];
        double const height = m_normal[0] * x + m_normal[1] * y + m_normal[2] * z;
        double const bound =
            errorFactor * (m_magnitude[0] * std::abs(x) + m_magnitude[1] * std::abs(y) +
                           m_magnitude[2] * std::abs(z));
        if (height > bound)
            return 1;
        if (height < -bound)
            return -1;
        return exactSideOf(p);
    }

    /// Where the edge between two points on different sides meets the plane, rounded to float. It
    /// depends on the two points only, not on the triangle from which the edge is seen.
    UPoint3<float> crossing(UPoint3<float> const& below, UPoint3<float> const& above) const;

    std::array<double, 2> project(UPoint3<float> const& p) const
    {
        return {p[m_first], p[m_second]};
    }
    /// The point of the plane with the given plane coordinates, rounded to float.
    UPoint3<float> lift(std::array<double, 2> const& p) const;

    /// Which way a triangle in the plane faces: +1 along N, -1 against it, 0 if it has no area.
    int facing(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c) const;

    /// True if the plane mesh covers a point of the plane, both seen in the plane's coordinates.
    bool covers(UPoint3<float> const& p) const;

    /// True if the plane mesh and the straight line between two points of the plane have a point in
    /// common, seen in the plane's coordinates.
    bool reaches(UPoint3<float> const& a, UPoint3<float> const& b) const;

    /// The signed distance from the plane in double, in a unit of the plane's own.
    double heightOf(UPoint3<float> const& p) const;

    UVector3<float> unitNormal() const;
    std::array<UPoint3<float>, 3> const& corners() const { return m_corners; }
    /// Whether the plane runs along two axes, so that its points are exact.
    bool isAxisParallel() const { return m_isAxisParallel; }
    /// The distance from the plane in double, without a sign.
    double distanceOf(UPoint3<float> const& p) const { return std::abs(heightOf(p)) / m_length; }

private:
    // Three subtractions, two levels of products and sums: the rounding errors stay below this
    // multiple of the sum of magnitudes.
    static constexpr double errorFactor = 16 * 1.1102230246251565e-16;

    using Corners = std::array<UPoint3<float>, 3>;

    int exactSideOf(UPoint3<float> const& p) const;

    Corners m_corners;
    std::vector<Corners> m_triangles;
    double m_origin[3];
    double m_normal[3];
    double m_magnitude[3];
    int m_first = 0;
    int m_second = 1;
    int m_dropped = 2;
    double m_length = 0;
    bool m_isAxisParallel = false;
    float m_level = 0;
    int m_upSign = 1;
};
