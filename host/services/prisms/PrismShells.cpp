// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/prisms/PrismShells.h"

#include <cmath>
#include <limits>
#include <numeric>

namespace {

using Point2 = PlaneCoordinates::Point2;
using Point3 = PlaneCoordinates::Point3;

/// How far a wall may lean and an end may be uneven: half of what is kept free around prisms.
constexpr double unevenMm = 0.0005;

Point3 cross(Point3 const& a, Point3 const& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Point3 unit(Point3 const& v)
{
    double const length = std::hypot(v[0], v[1], v[2]);
    return {v[0] / length, v[1] / length, v[2] / length};
}

bool areClose(Point2 const& a, Point2 const& b)
{
    return std::hypot(a[0] - b[0], a[1] - b[1]) <= unevenMm;
}

std::uint32_t rootOf(std::vector<std::uint32_t>& parents, std::uint32_t point)
{
    while (parents[point] != point)
        point = parents[point] = parents[parents[point]];
    return point;
}

}  // namespace

PlaneCoordinates::PlaneCoordinates(CutPlane const& plane)
{
    auto const& corners = plane.corners();
    auto const side = [&](std::size_t corner) {
        Point3 offset;
        for (int i = 0; i < 3; ++i)
            offset[std::size_t(i)] = double(corners[corner][i]) - corners[0][i];
        return offset;
    };
    Point3 const first = side(1);
    Point3 const normal = unit(cross(first, side(2)));
    m_axes[0] = unit(first);
    m_axes[1] = cross(normal, m_axes[0]);
    m_axes[2] = normal;
    m_level = along(normal, corners[0]);
}

PrismShells::PrismShells(MeshArrays const& mesh, PlaneCoordinates const& coordinates)
{
    numberShells(mesh);
    for (Shell& shell : shells) {
        shell.low = std::numeric_limits<double>::max();
        shell.high = std::numeric_limits<double>::lowest();
    }
    std::vector<Point3> places;
    places.reserve(mesh.points.size());
    for (std::size_t i = 0; i < mesh.points.size(); ++i) {
        Shell& shell = shells[shellOfPoint[i]];
        places.push_back(coordinates.of(mesh.points[i]));
        shell.low = std::min(shell.low, places[i][2]);
        shell.high = std::max(shell.high, places[i][2]);
    }
    std::vector<bool> isHigh(places.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
        Shell& shell = shells[shellOfPoint[i]];
        double const w = places[i][2];
        isHigh[i] = w > (shell.low + shell.high) / 2;
        if (std::abs(w - (isHigh[i] ? shell.high : shell.low)) > unevenMm)
            shell.isPrism = false;
    }
    for (MeshArrays::Corners const& corners : mesh.triangles) {
        int const high = isHigh[corners[0]] + isHigh[corners[1]] + isHigh[corners[2]];
        if (high == 0 || high == 3)
            continue;
        Shell& shell = shells[shellOfPoint[corners[0]]];
        for (std::size_t k = 0; k < 3; ++k) {
            // The one corner at its end of the wall, and the edge across from it.
            if (isHigh[corners[k]] != (high == 1))
                continue;
            std::uint32_t const a = corners[(k + 1) % 3], b = corners[(k + 2) % 3];
            Point2 const tip{places[corners[k]][0], places[corners[k]][1]};
            Point2 const from{places[a][0], places[a][1]}, to{places[b][0], places[b][1]};
            if (!areClose(tip, from) && !areClose(tip, to))
                shell.isPrism = false;
            if (high == 1)
                shell.outline.push_back({from, to});
        }
    }
}

/// Shells are numbered by their first points.
void PrismShells::numberShells(MeshArrays const& mesh)
{
    std::vector<std::uint32_t> parents(mesh.points.size());
    std::iota(parents.begin(), parents.end(), 0u);
    for (MeshArrays::Corners const& corners : mesh.triangles)
        for (std::size_t k = 1; k < 3; ++k) {
            std::uint32_t const a = rootOf(parents, corners[0]), b = rootOf(parents, corners[k]);
            parents[std::max(a, b)] = std::min(a, b);
        }
    shellOfPoint.resize(mesh.points.size());
    for (std::uint32_t i = 0; i < parents.size(); ++i) {
        std::uint32_t const root = rootOf(parents, i);
        if (root == i) {
            shellOfPoint[i] = std::uint32_t(shells.size());
            shells.emplace_back();
        } else {
            shellOfPoint[i] = shellOfPoint[root];
        }
    }
}
