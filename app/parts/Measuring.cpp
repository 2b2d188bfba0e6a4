// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/Measuring.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace Measuring {

namespace {

using Point = UPoint3<double>;
using Vector = UVector3<double>;

/// Faces count as parallel up to this; of coordinates in float no more can be told.
constexpr double parallelDegrees = 0.01;
/// Of the size of the coordinates: nearer than this a ray has not left its own face.
constexpr double ownFace = 1e-6;
/// Some microseconds of work.
constexpr std::size_t trianglesBetweenQuestions = 1000;

/// Corners in the world.
class Corners
{
public:
    explicit Corners(UMatrix4<float> const& placement)
    {
        for (int row = 0; row < 3; ++row)
            for (int column = 0; column < 4; ++column)
                m_rows[std::size_t(row)][std::size_t(column)] = placement(row, column);
    }

    std::array<Point, 3> of(UTriangle<float> const& triangle) const
    {
        std::array<Point, 3> corners;
        for (int corner = 0; corner < 3; ++corner) {
            UPoint3<float> const p = triangle.cP(corner);
            for (int row = 0; row < 3; ++row) {
                auto const& r = m_rows[std::size_t(row)];
                corners[std::size_t(corner)][row] =
                    r[0] * p.X() + r[1] * p.Y() + r[2] * p.Z() + r[3];
            }
        }
        return corners;
    }

private:
    std::array<std::array<double, 4>, 3> m_rows;
};

/// Where a ray passes through a triangle, as a multiple of its direction, on either side; none if it
/// does not. After Moeller and Trumbore, "Fast, minimum storage ray/triangle intersection", 1997.
std::optional<double> passage(Point const& origin, Vector const& direction,
                              std::array<Point, 3> const& corners)
{
    Vector const a = corners[1] - corners[0], b = corners[2] - corners[0];
    Vector const across = direction * b;
    double const determinant = a | across;
    if (determinant == 0)
        return {};
    Vector const offset = origin - corners[0];
    double const u = (offset | across) / determinant;
    Vector const other = offset * a;
    double const v = (direction | other) / determinant;
    // A little wider, so that no ray slips through between two triangles.
    constexpr double rim = 1e-9;
    if (u < -rim || v < -rim || u + v > 1 + rim)
        return {};
    return (b | other) / determinant;
}

}  // namespace

Between between(SurfacePoint const& a, SurfacePoint const& b)
{
    Between result;
    result.offset = b.point - a.point;
    result.distance = result.offset.GetLength();
    if (a.normal.GetLength() == 0 || b.normal.GetLength() == 0)
        return result;
    // By sine and cosine, so that small angles are exact too.
    result.angle = std::atan2((a.normal * b.normal).GetLength(), std::abs(a.normal | b.normal)) *
                   180 / std::numbers::pi;
    if (*result.angle < parallelDegrees)
        result.betweenFaces = std::abs(result.offset | a.normal);
    return result;
}

UVector3<double> outwardNormal(UMatrix4<float> const& placement, UTriangle<float> const& triangle)
{
    auto const corners = Corners(placement).of(triangle);
    Vector normal = (corners[1] - corners[0]) * (corners[2] - corners[0]);
    if (placement.linearDeterminant() < 0)
        normal = -normal;
    double const length = normal.GetLength();
    return length > 0 ? normal * (1 / length) : Vector();
}

std::optional<double> wallThickness(MeshKernel const& part, SurfacePoint const& at,
                                    std::stop_token const& unwanted)
{
    Vector const inward = -at.normal;
    if (inward.GetLength() == 0)
        return {};
    double const size =
        std::max({1.0, std::abs(at.point.X()), std::abs(at.point.Y()), std::abs(at.point.Z())});
    Corners const world(part.getMatrix());
    double const sense = part.getMatrix().linearDeterminant() < 0 ? -1 : 1;
    std::optional<double> least;
    std::size_t untilAsked = 0;
    auto const mesh = part.readMesh();
    for (UTriangle<float> const* const triangle : mesh->triangles) {
        if (untilAsked-- == 0) {
            if (unwanted.stop_requested())
                break;
            untilAsked = trianglesBetweenQuestions;
        }
        auto const corners = world.of(*triangle);
        auto const way = passage(at.point, inward, corners);
        if (!way || *way < ownFace * size || (least && *way >= *least))
            continue;
        // Out of the part, not into it.
        Vector const normal = (corners[1] - corners[0]) * (corners[2] - corners[0]);
        if (sense * (normal | inward) > 0)
            least = way;
    }
    return least;
}

}  // namespace Measuring
