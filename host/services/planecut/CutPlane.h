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

    /// +1 on the side to which N points, -1 on the other, 0 in the plane. Exact, but for points that
    /// an oblique plane passes by less than a unit of the last place of its corners' coordinates or
    /// the point's: they count as in the plane. It is known no better, and what an earlier cut there
    /// has made is beside it by as much.
    int sideOf(UPoint3<float> const& p) const
    {
        if (m_isAxisParallel) {
            float const c = p[m_dropped];
            return c > m_level ? m_upSign : c < m_level ? -m_upSign : 0;
        }
        double const x = p.X() - m_origin[0], y = p.Y() - m_origin[1], z = p.Z() - m_origin[2];
        double const height = m_normal[0] * x + m_normal[1] * y + m_normal[2] * z;
        double const bound = m_doubt + m_doubtPerOffset[0] * std::abs(x) +
                             m_doubtPerOffset[1] * std::abs(y) + m_doubtPerOffset[2] * std::abs(z);
        if (height > bound)
            return 1;
        if (height < -bound)
            return -1;
        return isWithinRounding(p) ? 0 : exactSideOf(p);
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
    using Corners = std::array<UPoint3<float>, 3>;

    void setDoubt(double const (&magnitude)[3]);
    bool isWithinRounding(UPoint3<float> const& p) const;
    int exactSideOf(UPoint3<float> const& p) const;

    Corners m_corners;
    std::vector<Corners> m_triangles;
    double m_origin[3];
    double m_normal[3];
    /// Heights below the one, and as much more for each offset from the origin, need a closer look.
    double m_doubt = 0;
    double m_doubtPerOffset[3];
    double m_cornerUnit = 0;
    int m_first = 0;
    int m_second = 1;
    int m_dropped = 2;
    double m_length = 0;
    bool m_isAxisParallel = false;
    float m_level = 0;
    int m_upSign = 1;
};
