// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/ContourRules.h"

#include "platform/geometry/MellMath.h"
#include "tools/SegmentRelation.h"

#include <cmath>
#include <limits>

namespace Freecut {

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<float>;

constexpr double contactTolerance = 0.01;
constexpr float unitsPerMm = 1000.0f;

int nearestEdgeEnd(std::vector<Point> const& vertices, Point const& p)
{
    std::size_t const n = vertices.size();
    float least = std::numeric_limits<float>::max();
    float bestCosine = -std::numeric_limits<float>::max();
    int best = 1;
    for (std::size_t i = 0; i < n; ++i) {
        Point const& a = vertices[i];
        Point const& b = vertices[(i + 1) % n];
        float const distance = MellMath<float>::DisPt2Segment(p, a, b);
        bool const isNearA = (b - p).GetLength() > (a - p).GetLength();
        Point const& near = isNearA ? a : b;
        Point const& far = isNearA ? b : a;
        float const cosine = (far - near).Normalize() | (p - near).Normalize();
        // Two edges are equally near where the nearest point is the corner between them.
        if (distance < least || (distance == least && cosine > bestCosine)) {
            least = distance;
            bestCosine = cosine;
            best = int((i + 1) % n);
        }
    }
    return best;
}

Point inThousandths(Point const& point)
{
    return {std::trunc(point.X() * unitsPerMm), std::trunc(point.Y() * unitsPerMm),
            std::trunc(point.Z() * unitsPerMm)};
}

}  // namespace

int insertionIndex(std::vector<Point> const& vertices, Point const& point,
                   Vector const& extrudeVector)
{
    if (vertices.size() < 2)
        return int(vertices.size());
    if (vertices.size() > 2)
        return nearestEdgeEnd(vertices, point);
    Vector const turn = (vertices[1] - vertices[0]) * (point - vertices[0]);
    return (turn | extrudeVector) > 0 ? 2 : 1;
}

int segmentContact(UPoint2<float> const& a, UPoint2<float> const& b, UPoint2<float> const& c,
                   UPoint2<float> const& d)
{
    UPoint2<float> first, last;
    return segmentRelation(a, b, c, d, first, last, contactTolerance);
}

bool touchesItself(std::vector<UPoint2<float>> const& points)
{
    std::size_t const n = points.size();
    if (n <= 3)
        return false;
    for (std::size_t i = 0; i < n - 3; ++i)
        for (std::size_t j = i + 2; j < n - 1; ++j)
            if (segmentContact(points[i], points[i + 1], points[j], points[j + 1]) < 0)
                return true;
    return false;
}

std::vector<Point> trialOutline(std::vector<Point> vertices, std::vector<TeethEdge> edges,
                                Point const& point, int index)
{
    int const divided = dividedEdge(int(edges.size()), index);
    bool const losesTeeth = edges[std::size_t(divided)].hasTeeth;
    vertices.insert(vertices.begin() + index, point);
    if (losesTeeth) {
        edges[std::size_t(divided)] = {};
        edges.insert(edges.begin() + index, TeethEdge());
    } else {
        edges.insert(edges.begin() + divided, TeethEdge());
    }
    std::vector<Point> outline;
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        outline.push_back(inThousandths(vertices[i]));
        if (edges[i].hasTeeth && edges[i].applied)
            for (Point const& tooth : edges[i].appliedPoints)
                outline.push_back(inThousandths(tooth));
    }
    return outline;
}

}  // namespace Freecut
