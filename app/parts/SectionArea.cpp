// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/SectionArea.h"

#include <array>
#include <cmath>

namespace {

using Vector = UVector3<double>;

constexpr std::size_t trianglesBetweenQuestions = 65536;
/// Of the length of all lines: what rounding leaves open between their pieces.
constexpr double closedWithin = 1e-6;

/// A corner, from a point of the plane.
struct Corner
{
    Vector place;
    /// Above the plane; one that lies in it counts as above, so that each line is closed.
    double height = 0;
    bool isAbove() const { return height >= 0; }
};

class Placing
{
public:
    Placing(UMatrix4<float> const& placement, UPoint3<double> const& origin, Vector const& normal)
        : m_origin(origin), m_normal(normal)
    {
        for (int row = 0; row < 3; ++row)
            for (int column = 0; column < 4; ++column)
                m_rows[std::size_t(row)][std::size_t(column)] = placement(row, column);
    }

    Corner operator()(UPoint3<float> const& p) const
    {
        Corner corner;
        for (int row = 0; row < 3; ++row) {
            auto const& r = m_rows[std::size_t(row)];
            corner.place[row] = r[0] * p.X() + r[1] * p.Y() + r[2] * p.Z() + (r[3] - m_origin[row]);
        }
        corner.height = corner.place | m_normal;
        return corner;
    }

private:
    std::array<std::array<double, 4>, 3> m_rows;
    UPoint3<double> m_origin;
    Vector m_normal;
};

/// From the lower end, so that both triangles of an edge find the same place.
Vector crossing(Corner const& a, Corner const& b)
{
    Corner const& low = a.isAbove() ? b : a;
    Corner const& high = a.isAbove() ? a : b;
    return low.place + (high.place - low.place) * (low.height / (low.height - high.height));
}

struct Sums
{
    /// Twice the area along the normal.
    double twice = 0;
    Vector way;
    double length = 0;

    /// The piece of line in a triangle that the plane meets, with the solid to its left as seen from
    /// above.
    void add(std::array<Corner, 3> const& corners, Vector const& normal)
    {
        std::size_t alone = 0;
        while (corners[(alone + 1) % 3].isAbove() != corners[(alone + 2) % 3].isAbove())
            ++alone;
        Vector from = crossing(corners[alone], corners[(alone + 1) % 3]);
        Vector to = crossing(corners[alone], corners[(alone + 2) % 3]);
        if (!corners[alone].isAbove())
            std::swap(from, to);
        twice += (from * to) | normal;
        way = way + (to - from);
        length += (to - from).GetLength();
    }
};

}  // namespace

std::optional<double> sectionArea(UMesh<float> const& mesh, UMatrix4<float> const& placement,
                                  UPoint3<double> const& point, UVector3<double> const& normal,
                                  std::function<bool()> const& isUnwanted)
{
    Vector const unit = normal * (1 / normal.GetLength());
    Placing const placed(placement, point, unit);
    Sums sums;
    std::size_t count = 0;
    for (UTriangle<float> const* const triangle : mesh.triangles) {
        if (++count % trianglesBetweenQuestions == 0 && isUnwanted && isUnwanted())
            return {};
        std::array<Corner, 3> const corners{placed(triangle->cP(0)), placed(triangle->cP(1)),
                                            placed(triangle->cP(2))};
        bool const first = corners[0].isAbove();
        if (corners[1].isAbove() != first || corners[2].isAbove() != first)
            sums.add(corners, unit);
    }
    if (sums.way.GetLength() > closedWithin * sums.length)
        return {};
    // A reflection turns the triangles around.
    double const sense = placement.linearDeterminant() < 0 ? -1 : 1;
    return sense * sums.twice / 2;
}
