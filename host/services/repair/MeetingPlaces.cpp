// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/MeetingPlaces.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <optional>
#include <utility>

namespace {

using Place = std::array<double, 3>;
using Vector = UVector3<double>;
using Point = UPoint3<double>;
using Triangle = std::array<Point, 3>;

Triangle triangleOf(MeshArrays const& mesh, std::size_t t)
{
    Triangle triangle;
    for (int k = 0; k < 3; ++k) {
        MeshArrays::Point const& p = mesh.point(t, k);
        triangle[std::size_t(k)] = {double(p.X()), double(p.Y()), double(p.Z())};
    }
    return triangle;
}

/// A vector of length one; none of a triangle without area.
std::optional<Vector> normalOf(Triangle const& triangle)
{
    Vector normal = (triangle[1] - triangle[0]) * (triangle[2] - triangle[0]);
    double const length = normal.GetLength();
    if (!(length > 0))
        return {};
    return normal / length;
}

struct Segment
{
    Point from;
    Point to;
};

/// Where a triangle's border passes through a plane; none if it does not, or lies within.
std::optional<Segment> crossedBy(Triangle const& triangle, Point const& through,
                                 Vector const& normal)
{
    double heights[3];
    for (std::size_t k = 0; k < 3; ++k)
        heights[k] = (triangle[k] - through) | normal;
    Point ends[3];
    int count = 0;
    for (std::size_t k = 0; k < 3; ++k) {
        std::size_t const next = (k + 1) % 3;
        if ((heights[k] < 0) != (heights[next] < 0))
            ends[count++] = triangle[k] + (triangle[next] - triangle[k]) *
                                              (heights[k] / (heights[k] - heights[next]));
    }
    if (count != 2)
        return {};
    return Segment{ends[0], ends[1]};
}

/// What two segments of one line have in common.
std::optional<Segment> commonOf(Segment const& a, Segment const& b)
{
    Vector const along = a.to - a.from;
    double const squared = along | along;
    if (!(squared > 0))
        return {};
    double low = ((b.from - a.from) | along) / squared, high = ((b.to - a.from) | along) / squared;
    if (low > high)
        std::swap(low, high);
    low = std::max(low, 0.0);
    high = std::min(high, 1.0);
    if (!(low < high))
        return {};
    return Segment{a.from + along * low, a.from + along * high};
}

/// Two triangles that cross, with the curve.
struct Crossing
{
    Segment curve;
    Vector normals[2];
};

std::optional<Crossing> crossingOf(Triangle const& a, Triangle const& b)
{
    auto const normalA = normalOf(a), normalB = normalOf(b);
    if (!normalA || !normalB)
        return {};
    auto const ofA = crossedBy(a, b[0], *normalB), ofB = crossedBy(b, a[0], *normalA);
    if (!ofA || !ofB)
        return {};
    auto const curve = commonOf(*ofA, *ofB);
    if (!curve)
        return {};
    return Crossing{*curve, {*normalA, *normalB}};
}

TriangleTree::Box boxOf(Triangle const& triangle)
{
    TriangleTree::Box box;
    for (Point const& p : triangle)
        box.add({{float(p.X()), float(p.Y()), float(p.Z()), 0},
                 {float(p.X()), float(p.Y()), float(p.Z()), 0}});
    return box;
}

/// Calls visit(number) for each triangle in the tree whose box overlaps another, in no order that
/// depends on anything but the tree.
template <typename Visit>
void forOverlapping(TriangleTree const& tree, TriangleTree::Box const& box, Visit const& visit)
{
    if (tree.levels().empty())
        return;
    std::vector<std::pair<std::size_t, std::size_t>> open{{tree.levels().size() - 1, 0}};
    while (!open.empty()) {
        auto const [level, place] = open.back();
        open.pop_back();
        if (!tree.levels()[level][place].overlaps(box))
            continue;
        if (level > 0) {
            for (std::size_t below = 2 * place; below < 2 * place + 2; ++below)
                if (below < tree.levels()[level - 1].size())
                    open.emplace_back(level - 1, below);
            continue;
        }
        TriangleTree::Block const& block = tree.blocks()[place];
        for (std::uint32_t near = block.overlapping(box); near != 0; near &= near - 1)
            visit(block.triangles[std::countr_zero(near)]);
    }
}

/// In the four wedges around a point of a curve.
void addAround(Crossing const& crossing, Point const& point, double away,
               std::vector<Place>& places)
{
    for (double const side : {1.0, -1.0}) {
        Vector across = crossing.normals[0] + crossing.normals[1] * side;
        double const length = across.GetLength();
        if (!(length > 0))
            continue;
        across = across / length;
        for (double const step : {away, -away}) {
            Point const p = point + across * step;
            places.push_back({p.X(), p.Y(), p.Z()});
        }
    }
}

void addAlong(Crossing const& crossing, double unit, std::size_t count, std::vector<Place>& places)
{
    Vector const along = crossing.curve.to - crossing.curve.from;
    double const length = along.GetLength();
    constexpr double nearest = 32;
    if (length < nearest * unit)
        return;
    for (std::size_t i = 0; i < count; ++i) {
        double const share = (double(i) + 0.5) / double(count);
        for (double const away : {nearest * unit, std::max(nearest * unit, length / 50)})
            addAround(crossing, crossing.curve.from + along * share, away, places);
    }
}

}  // namespace

std::vector<Place> placesWhereTheyMeet(MeshArrays const& mesh, TriangleTree const& tree,
                                       MeshArrays const& part, double unit, std::size_t most,
                                       StageProgress& progress)
{
    std::vector<Crossing> crossings;
    std::size_t const count = part.triangles.size(), asked = std::min(count, most);
    for (std::size_t i = 0; i < asked; ++i) {
        progress.add(0);
        Triangle const triangle = triangleOf(part, i * count / asked);
        forOverlapping(tree, boxOf(triangle), [&](std::uint32_t other) {
            if (auto const crossing = crossingOf(triangle, triangleOf(mesh, other)))
                crossings.push_back(*crossing);
        });
    }
    constexpr std::size_t mostPlaces = 7;
    std::size_t const chosen = std::min(crossings.size(), most);
    std::vector<Place> places;
    for (std::size_t i = 0; i < chosen; ++i)
        addAlong(crossings[i * crossings.size() / chosen], unit,
                 std::clamp<std::size_t>(most / chosen, 1, mostPlaces), places);
    return places;
}

std::vector<std::uint32_t> trianglesIn(TriangleTree const& tree, TriangleTree::Box const& box,
                                       std::size_t most)
{
    std::vector<std::uint32_t> all;
    forOverlapping(tree, box, [&](std::uint32_t triangle) { all.push_back(triangle); });
    std::size_t const count = all.size(), chosen = std::min(count, most);
    for (std::size_t i = 0; i < chosen; ++i)
        all[i] = all[i * count / chosen];
    all.resize(chosen);
    return all;
}
