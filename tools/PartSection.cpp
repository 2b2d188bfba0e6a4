// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/PartSection.h"

#include "platform/mesh/UMesh.h"
#include "platform/mesh/UTriangle.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <tuple>

namespace Freecut {

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<float>;

constexpr std::size_t trianglesPerPoll = 4096;
/// The cosine of 5 degrees: facets of a curve are no corners.
constexpr float straight = 0.9962f;

bool comesBefore(Point const& a, Point const& b)
{
    return std::tuple(a.X(), a.Y(), a.Z()) < std::tuple(b.X(), b.Y(), b.Z());
}

/// The point of an edge on the plane, the same from either side of the edge.
Point crossing(Point a, double heightOfA, Point b, double heightOfB)
{
    if (comesBefore(b, a)) {
        std::swap(a, b);
        std::swap(heightOfA, heightOfB);
    }
    double const share = heightOfA / (heightOfA - heightOfB);
    auto const between = [share](float from, float to) {
        return float(from + share * (double(to) - from));
    };
    return {between(a.X(), b.X()), between(a.Y(), b.Y()), between(a.Z(), b.Z())};
}

class Plane
{
public:
    Plane(Point const& onPlane, Vector const& normal)
        : m_normal(Vector(normal).Normalize()), m_height(heightAlong(onPlane))
    {}

    double heightOf(Point const& point) const { return heightAlong(point) - m_height; }
    void addLine(std::array<Point, 3> const& corners, SectionLines& section) const
    {
        std::array<double, 3> const heights = {heightOf(corners[0]), heightOf(corners[1]),
                                               heightOf(corners[2])};
        std::array<Point, 2> line;
        std::size_t ends = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            std::size_t const j = (i + 1) % 3;
            if ((heights[i] >= 0) != (heights[j] >= 0))
                line[ends++] = crossing(corners[i], heights[i], corners[j], heights[j]);
        }
        if (ends == 2 && line[0] != line[1])
            section.lines.push_back(line);
    }

private:
    double heightAlong(Point const& point) const
    {
        return double(m_normal.X()) * point.X() + double(m_normal.Y()) * point.Y() +
               double(m_normal.Z()) * point.Z();
    }

    Vector m_normal;
    double m_height;
};

/// A line as it leaves one of its ends.
struct LineEnd
{
    Point at;
    Vector direction;
};

bool isCorner(std::vector<LineEnd> const& ends, std::size_t first, std::size_t last)
{
    if (last - first != 2)
        return true;
    return (ends[first].direction | -ends[first + 1].direction) < straight;
}

std::vector<Point> cornersOf(std::vector<std::array<Point, 2>> const& lines)
{
    std::vector<LineEnd> ends;
    ends.reserve(2 * lines.size());
    for (auto const& [a, b] : lines) {
        ends.push_back({a, Vector(b - a).Normalize()});
        ends.push_back({b, Vector(a - b).Normalize()});
    }
    std::sort(ends.begin(), ends.end(),
              [](LineEnd const& a, LineEnd const& b) { return comesBefore(a.at, b.at); });
    std::vector<Point> corners;
    for (std::size_t first = 0; first < ends.size();) {
        std::size_t last = first + 1;
        while (last < ends.size() && ends[last].at == ends[first].at)
            ++last;
        if (isCorner(ends, first, last))
            corners.push_back(ends[first].at);
        first = last;
    }
    return corners;
}

}  // namespace

void SectionLines::append(SectionLines const& other)
{
    lines.insert(lines.end(), other.lines.begin(), other.lines.end());
    corners.insert(corners.end(), other.corners.begin(), other.corners.end());
}

SectionLines sectionOfPart(UMesh<float> const& mesh, UMatrix4<float> const& matrix,
                           UPoint3<float> const& onPlane, UVector3<float> const& normal,
                           std::function<void()> const& poll)
{
    Plane const plane(onPlane, normal);
    bool const isInPlace = matrix.isIdentity();
    auto const placed = [&](Point const& point) { return isInPlace ? point : matrix * point; };
    SectionLines section;
    std::size_t seen = 0;
    for (UTriangle<float> const* const triangle : mesh.triangles) {
        if (poll && seen++ % trianglesPerPoll == 0)
            poll();
        plane.addLine({placed(triangle->cP(0)), placed(triangle->cP(1)), placed(triangle->cP(2))},
                      section);
    }
    section.corners = cornersOf(section.lines);
    return section;
}

}  // namespace Freecut
