// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PartSurface.h"

#include "host/mesh/DisjointSets.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

std::int16_t packed(double value)
{
    return std::int16_t(std::lround(value * 32767));
}

/// The octahedral map of Cigolle, Donow, Evangelakos, Mara, McGuire and Meyer, "A Survey of
/// Efficient Representations for Independent Unit Vectors" (2014).
std::array<std::int16_t, 2> folded(UVector3<double> const& n)
{
    double const size = std::abs(n.X()) + std::abs(n.Y()) + std::abs(n.Z());
    if (size == 0)
        return {0, 0};
    double const x = n.X() / size;
    double const y = n.Y() / size;
    if (n.Z() >= 0)
        return {packed(x), packed(y)};
    return {packed(std::copysign(1 - std::abs(y), x)), packed(std::copysign(1 - std::abs(x), y))};
}

UVector3<double> normalOf(MeshArrays const& mesh, std::size_t triangle)
{
    auto const edge = [&](int corner) {
        UVector3<float> const v = mesh.point(triangle, corner) - mesh.point(triangle, 0);
        return UVector3<double>(v.X(), v.Y(), v.Z());
    };
    return edge(1) * edge(2);
}

/// By some of the triangles.
double meanEdgeOf(MeshArrays const& mesh)
{
    std::size_t const stride = 1 + mesh.triangles.size() / 10000;
    double sum = 0;
    std::size_t count = 0;
    for (std::size_t t = 0; t < mesh.triangles.size(); t += stride, count += 3)
        for (int k = 0; k < 3; ++k)
            sum += (mesh.point(t, (k + 1) % 3) - mesh.point(t, k)).GetLength();
    return count ? sum / double(count) : 0;
}

/// The last steps of the generator of Steele, Lea and Flood, "Fast Splittable Pseudorandom Number
/// Generators" (2014).
std::uint64_t mixed(std::uint64_t x)
{
    x = (x ^ x >> 30) * 0xbf58476d1ce4e5b9u;
    x = (x ^ x >> 27) * 0x94d049bb133111ebu;
    return x ^ x >> 31;
}

/// Whether each edge is run through as often one way as the other, told by a sum of numbers that
/// cancel out in pairs: it is 0 for a mesh with a border by a chance of 1 in 2^64.
bool isClosed(MeshArrays const& mesh)
{
    std::uint64_t sum = 0;
    for (MeshArrays::Corners const& t : mesh.triangles)
        for (int k = 0; k < 3; ++k) {
            std::uint64_t const a = t[k], b = t[(k + 1) % 3];
            sum += a < b ? mixed(a << 32 | b) : a > b ? -mixed(b << 32 | a) : 0;
        }
    return sum == 0;
}

/// Whether each connected region encloses a volume above 0. A cavity does not: whether it lies in
/// something is not asked.
bool isOutward(MeshArrays const& mesh)
{
    DisjointSets regions(mesh.points.size());
    for (MeshArrays::Corners const& t : mesh.triangles) {
        regions.unite(t[0], t[1]);
        regions.unite(t[0], t[2]);
    }
    std::vector<double> volumes(mesh.points.size(), 0);
    auto const corner = [&](MeshArrays::Corners const& t, int k) {
        UVector3<float> const v = mesh.points[t[k]] - mesh.points[0];
        return UVector3<double>(v.X(), v.Y(), v.Z());
    };
    for (MeshArrays::Corners const& t : mesh.triangles)
        volumes[regions.root(t[0])] += corner(t, 0) | (corner(t, 1) * corner(t, 2));
    return std::all_of(mesh.triangles.begin(), mesh.triangles.end(),
                       [&](auto const& t) { return volumes[regions.root(t[0])] > 0; });
}

}  // namespace

PartSurface::PartSurface(MeshArrays const& mesh)
    : meanEdge(meanEdgeOf(mesh)), isSolid(isClosed(mesh) && isOutward(mesh))
{
    vertices.reserve(std::max(mesh.points.size(), mesh.triangles.size()));
    for (MeshArrays::Point const& point : mesh.points) {
        vertices.push_back({point, {0, 0}});
        box.Add(point);
    }
    indices.reserve(mesh.triangles.size() * 3);
    std::vector<bool> isLast(mesh.points.size(), false);
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
        MeshArrays::Corners const& corners = mesh.triangles[t];
        int last = 2;
        while (last >= 0 && isLast[corners[last]])
            --last;
        std::uint32_t lastVertex = last < 0 ? 0 : corners[last];
        if (last < 0) {
            last = 2;
            lastVertex = std::uint32_t(vertices.size());
            vertices.push_back({mesh.points[corners[2]], {0, 0}});
        } else {
            isLast[lastVertex] = true;
        }
        auto const facet = folded(normalOf(mesh, t));
        std::copy(facet.begin(), facet.end(), vertices[lastVertex].facet);
        indices.push_back(corners[(last + 1) % 3]);
        indices.push_back(corners[(last + 2) % 3]);
        indices.push_back(lastVertex);
    }
}
