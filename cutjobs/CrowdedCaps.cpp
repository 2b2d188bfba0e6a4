// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/CrowdedCaps.h"

#include "platform/mesh/MeshKernel.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<double>;
using Triangle = UTriangle<float>;

/// A fan of fewer triangles is no burden.
constexpr std::size_t crowd = 256;
/// How many planes are looked at: those of the largest triangle of each stretch of the list, for
/// the triangles of a cap follow each other.
constexpr std::size_t stretches = 32;
/// How far points of one cap may lie beside its plane, for the size of their coordinates.
constexpr double flatness = 0x1p-20;

Vector offset(Point const& from, Point const& to)
{
    return {double(to.X()) - from.X(), double(to.Y()) - from.Y(), double(to.Z()) - from.Z()};
}

Vector areaOf(Triangle const& t)
{
    return offset(t.cP(0), t.cP(1)) * offset(t.cP(0), t.cP(2));
}

double reachOf(UMesh<float> const& tool)
{
    float reach = 0;
    for (auto const* const vertex : tool.vertices) {
        Point const p = vertex->cP();
        reach = std::max({reach, std::abs(p.X()), std::abs(p.Y()), std::abs(p.Z())});
    }
    return double(reach);
}

std::size_t largestOf(std::vector<Triangle*> const& triangles, std::size_t begin, std::size_t end)
{
    std::size_t largest = begin;
    double most = 0;
    for (std::size_t t = begin; t < end; ++t)
        if (double const area = areaOf(*triangles[t]).GetLength(); area > most) {
            most = area;
            largest = t;
        }
    return largest;
}

std::vector<std::size_t> trianglesInPlane(std::vector<Triangle*> const& triangles,
                                          Point const& origin, Vector const& normal,
                                          double tolerance)
{
    std::vector<std::size_t> found;
    for (std::size_t t = 0; t < triangles.size(); ++t) {
        bool isFlat = true;
        for (int k = 0; isFlat && k < 3; ++k)
            isFlat = std::abs(offset(origin, triangles[t]->cP(k)) | normal) <= tolerance;
        if (isFlat)
            found.push_back(t);
    }
    return found;
}

}  // namespace

std::vector<bool> crowdedCaps(UMesh<float> const& tool)
{
    auto const& triangles = tool.triangles;
    if (triangles.size() < crowd)
        return {};
    double const tolerance = flatness * reachOf(tool);
    std::vector<bool> isSeen(triangles.size(), false), isCap;
    for (std::size_t i = 0; i < stretches; ++i) {
        std::size_t const seed = largestOf(triangles, i * triangles.size() / stretches,
                                           (i + 1) * triangles.size() / stretches);
        Vector const area = areaOf(*triangles[seed]);
        if (isSeen[seed] || area.GetLength() == 0)
            continue;
        std::vector<std::size_t> const inPlane = trianglesInPlane(
            triangles, triangles[seed]->cP(0), area * (1 / area.GetLength()), tolerance);
        for (std::size_t const t : inPlane)
            isSeen[t] = true;
        if (inPlane.size() < crowd)
            continue;
        isCap.resize(triangles.size(), false);
        for (std::size_t const t : inPlane)
            isCap[t] = true;
    }
    return isCap;
}
