// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "host/services/planecut/CutPlane.h"

#include <array>
#include <vector>

/// A plane's coordinates in millimetres: u and v along it, w along its normal, 0 in the plane.
class PlaneCoordinates
{
public:
    using Point2 = std::array<double, 2>;
    using Point3 = std::array<double, 3>;

    explicit PlaneCoordinates(CutPlane const& plane);

    double heightOf(UPoint3<float> const& p) const { return along(m_axes[2], p) - m_level; }
    Point2 placeOf(UPoint3<float> const& p) const
    {
        return {along(m_axes[0], p), along(m_axes[1], p)};
    }
    Point3 of(UPoint3<float> const& p) const
    {
        return {along(m_axes[0], p), along(m_axes[1], p), heightOf(p)};
    }

private:
    static double along(Point3 const& axis, UPoint3<float> const& p)
    {
        return axis[0] * p.X() + axis[1] * p.Y() + axis[2] * p.Z();
    }

    std::array<Point3, 3> m_axes;
    double m_level;
};

/// The connected shells of a mesh, seen as prisms upright on a plane.
struct PrismShells
{
    using Edge = std::array<PlaneCoordinates::Point2, 2>;

    struct Shell
    {
        /// Whether all its vertices lie at its lowest or its highest level and its walls are
        /// upright.
        bool isPrism = true;
        double low = 0;
        double high = 0;
        /// Where walls meet the lower end, in no order.
        std::vector<Edge> outline;
    };

    PrismShells(MeshArrays const& mesh, PlaneCoordinates const& coordinates);

    std::vector<Shell> shells;
    /// The shell of each point of the mesh.
    std::vector<std::uint32_t> shellOfPoint;

private:
    void numberShells(MeshArrays const& mesh);
};
