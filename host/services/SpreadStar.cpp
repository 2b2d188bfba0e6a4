// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/SpreadStar.h"

#include <cmath>

// Own derivation. Project along the sum n of the triangles' normals. If every triangle keeps its
// orientation, the angles at the vertex are all between 0 and half a turn, and their sum is a
// whole number of turns: the number of triangles that a ray from the vertex passes through. With
// one turn the projected triangles do not overlap, so neither do those in space.
namespace {

using Vector = std::array<double, 3>;

/// The relative error of the triple products below stays under a fifth of this.
constexpr double errorBound = 1e-14;

Vector offset(MeshArrays::Point const& from, MeshArrays::Point const& to)
{
    return {double(to.X()) - from.X(), double(to.Y()) - from.Y(), double(to.Z()) - from.Z()};
}

double dot(Vector const& a, Vector const& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vector cross(Vector const& a, Vector const& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

/// The two edges of a corner and their cross product.
struct Corner
{
    Vector next;
    Vector previous;
    Vector normal;
};

Corner cornerOf(MeshArrays const& mesh, std::uint32_t vertex, std::uint32_t corner)
{
    Vector const next = offset(mesh.points[vertex], mesh.point(corner / 3, (corner + 1) % 3));
    Vector const previous = offset(mesh.points[vertex], mesh.point(corner / 3, (corner + 2) % 3));
    return {next, previous, cross(next, previous)};
}

/// A direction far from that of `normal`, and unlikely to run along an edge of a regular grid.
Vector rayBeside(Vector const& normal)
{
    double const x = std::abs(normal[0]), y = std::abs(normal[1]), z = std::abs(normal[2]);
    if (x >= y && x >= z)
        return {0.0137, 0.8117, 0.5839};
    return y >= z ? Vector{0.8117, 0.0137, 0.5839} : Vector{0.8117, 0.5839, 0.0137};
}

/// The sign of a value known up to an error, 0 if it is in doubt.
int certainSign(double value, double squaredScale)
{
    if (value * value <= errorBound * errorBound * squaredScale)
        return 0;
    return value > 0 ? 1 : -1;
}

/// cornerAt  gives the corners by place; asked for all of them twice
template <typename CornerAt>
bool isSpread(std::size_t count, CornerAt const& cornerAt)
{
    Vector sum{};
    for (std::size_t i = 0; i < count; ++i) {
        Corner const& corner = cornerAt(i);
        for (std::size_t k = 0; k < 3; ++k)
            sum[k] += corner.normal[k];
    }
    Vector const side = cross(sum, rayBeside(sum));
    double const squaredSum = dot(sum, sum);
    int passed = 0;
    for (std::size_t i = 0; i < count; ++i) {
        Corner const& corner = cornerAt(i);
        double const squaredNext = dot(corner.next, corner.next);
        double const squaredPrevious = dot(corner.previous, corner.previous);
        if (certainSign(dot(sum, corner.normal), squaredSum * squaredNext * squaredPrevious) <= 0)
            return false;
        int const from = certainSign(dot(side, corner.next), squaredSum * squaredNext);
        int const to = certainSign(dot(side, corner.previous), squaredSum * squaredPrevious);
        if (from == 0 || to == 0)
            return false;
        passed += from < 0 && to > 0;
    }
    return passed == 1;
}

}  // namespace

bool isStarSpread(MeshArrays const& mesh, std::uint32_t vertex,
                  std::span<std::uint32_t const> corners)
{
    // Most vertices have six corners: these are kept, and are made once.
    constexpr std::size_t few = 12;
    if (corners.size() < 3)
        return false;
    if (corners.size() > few)
        return isSpread(corners.size(),
                        [&](std::size_t i) { return cornerOf(mesh, vertex, corners[i]); });
    std::array<Corner, few> kept;
    for (std::size_t i = 0; i < corners.size(); ++i)
        kept[i] = cornerOf(mesh, vertex, corners[i]);
    return isSpread(corners.size(), [&](std::size_t i) -> Corner const& { return kept[i]; });
}
