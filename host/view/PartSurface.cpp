// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PartSurface.h"

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

}  // namespace

PartSurface::PartSurface(MeshArrays const& mesh) : meanEdge(meanEdgeOf(mesh))
{
    vertices.reserve(std::max(mesh.points.size(), mesh.triangles.size()));
    for (MeshArrays::Point const& point : mesh.points)
        vertices.push_back({point, {0, 0}});
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
