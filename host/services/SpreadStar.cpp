// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/SpreadStar.h"

#include <cmath>

// Own derivation. Project along the sum n of the triangles' normals. If every triangle keeps its
// orientation, the angles at the vertex are all between 0 and half a turn, and their sum is a
// whole number of turns: the number of triangles that a ray from the vertex passes through. With
// one turn the projected triangles do not overlap, so neither do those in space.
namespace {

using Vector = UVector3<double>;

/// The relative error of the triple products below stays under a fifth of this.
constexpr double errorBound = 1e-14;

Vector offset(MeshArrays::Point const& from, MeshArrays::Point const& to)
{
    return {double(to.X()) - from.X(), double(to.Y()) - from.Y(), double(to.Z()) - from.Z()};
}

/// The two edges of a corner and their cross product.
struct Corner
{
    Corner(MeshArrays const& mesh, std::uint32_t vertex, std::uint32_t corner)
        : next(offset(mesh.points[vertex], mesh.point(corner / 3, (corner + 1) % 3))),
          previous(offset(mesh.points[vertex], mesh.point(corner / 3, (corner + 2) % 3))),
          normal(next * previous)
    {}

    Vector next;
    Vector previous;
    Vector normal;
};

/// A direction far from that of `normal`, and unlikely to run along an edge of a regular grid.
Vector rayBeside(Vector const& normal)
{
    double const x = std::abs(normal.X()), y = std::abs(normal.Y()), z = std::abs(normal.Z());
    if (x >= y && x >= z)
        return {0.0137, 0.8117, 0.5839};
    return y >= z ? Vector(0.8117, 0.0137, 0.5839) : Vector(0.8117, 0.5839, 0.0137);
}

/// The sign of a value known up to an error, 0 if it is in doubt.
int certainSign(double value, double squaredScale)
{
    if (value * value <= errorBound * errorBound * squaredScale)
        return 0;
    return value > 0 ? 1 : -1;
}

}  // namespace

bool isStarSpread(MeshArrays const& mesh, std::uint32_t vertex,
                  std::span<std::uint32_t const> corners)
{
    if (corners.size() < 3)
        return false;
    Vector sum;
    for (std::uint32_t corner : corners)
        sum += Corner(mesh, vertex, corner).normal;
    Vector const side = sum * rayBeside(sum);
    double const squaredSum = sum | sum;
    int passed = 0;
    for (std::uint32_t c : corners) {
        Corner const corner(mesh, vertex, c);
        double const squaredNext = corner.next | corner.next;
        double const squaredPrevious = corner.previous | corner.previous;
        if (certainSign(sum | corner.normal, squaredSum * squaredNext * squaredPrevious) <= 0)
            return false;
        int const from = certainSign(side | corner.next, squaredSum * squaredNext);
        int const to = certainSign(side | corner.previous, squaredSum * squaredPrevious);
        if (from == 0 || to == 0)
            return false;
        passed += from < 0 && to > 0;
    }
    return passed == 1;
}
