// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/RoundingCrossings.h"

#include "host/mesh/ExactSigns.h"
#include "host/services/Polling.h"
#include "host/services/SelfIntersections.h"
#include "host/services/TrianglePair.h"
#include "host/services/TriangleTree.h"
#include "host/services/boolean/AskedStars.h"
#include "host/services/boolean/BoxCells.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace {

using Point = UPoint3<float>;
using Corners = MeshArrays::Corners;
using Box = TriangleTree::Box;
using Index = std::uint32_t;

/// Triangles that cross by more than this many units in every respect do not cross by rounding.
constexpr double mostRoundingUnits = 256;

using Vector = UVector3<double>;

Vector vectorOf(Point const& p)
{
    return {p[0], p[1], p[2]};
}

/// Where a line is within a triangle, of which it runs in the plane: by the distances of the corners
/// from another plane that contains the line, and their places along it.
std::array<double, 2> spanOf(std::array<double, 3> const& distances,
                             std::array<double, 3> const& places)
{
    std::array<double, 2> span{std::numeric_limits<double>::infinity(),
                               -std::numeric_limits<double>::infinity()};
    for (std::size_t i = 0; i < 3; ++i) {
        std::size_t const k = (i + 1) % 3;
        if ((distances[i] < 0) == (distances[k] < 0))
            continue;
        double const share = distances[i] / (distances[i] - distances[k]);
        double const place = places[i] + share * (places[k] - places[i]);
        span = {std::min(span[0], place), std::max(span[1], place)};
    }
    return span;
}

/// By how much two triangles cross: the least of how far each reaches through the plane of the other
/// and how long the line is that they share.
///
/// tolerance  rounding of doubles; meant for comparison with units of floats
double crossingDepth(std::array<Point, 3> const& a, std::array<Point, 3> const& b)
{
    std::array<std::array<Vector, 3>, 2> corners;
    for (std::size_t i = 0; i < 3; ++i)
        corners[0][i] = vectorOf(a[i]) - vectorOf(a[0]),
        corners[1][i] = vectorOf(b[i]) - vectorOf(a[0]);
    std::array<Vector, 2> normals;
    for (std::size_t k = 0; k < 2; ++k) {
        normals[k] = (corners[k][1] - corners[k][0]) * (corners[k][2] - corners[k][0]);
        normals[k].Normalize();
    }
    Vector along = normals[0] * normals[1];
    along.Normalize();
    double depth = std::numeric_limits<double>::infinity();
    std::array<double, 2> shared{-depth, depth};
    for (std::size_t k = 0; k < 2; ++k) {
        std::array<double, 3> distances, places;
        for (std::size_t i = 0; i < 3; ++i) {
            distances[i] = normals[1 - k] | (corners[k][i] - corners[1 - k][0]);
            places[i] = along | corners[k][i];
        }
        auto const [least, most] = std::minmax_element(distances.begin(), distances.end());
        depth = std::min({depth, std::max(0.0, *most), std::max(0.0, -*least)});
        auto const span = spanOf(distances, places);
        shared = {std::max(shared[0], span[0]), std::min(shared[1], span[1])};
    }
    return std::min(depth, std::max(0.0, shared[1] - shared[0]));
}

float unitOf(Point const& p)
{
    float const size = std::max({std::fabs(p[0]), std::fabs(p[1]), std::fabs(p[2])});
    return std::nextafter(size, std::numeric_limits<float>::infinity()) - size;
}

/// Whether a triangle has corners on both sides of the plane of another.
bool passesThrough(MeshArrays const& mesh, std::size_t t, std::size_t plane)
{
    bool isInFront = false, isBehind = false;
    for (int k = 0; k < 3; ++k) {
        int const side = ExactSigns::orient3d(mesh.point(plane, 0), mesh.point(plane, 1),
                                              mesh.point(plane, 2), mesh.point(t, k));
        isInFront |= side > 0;
        isBehind |= side < 0;
    }
    return isInFront && isBehind;
}

/// Whether triangles lie on each other or one ends on the other. Their parts do so too, wherever
/// rounding has moved these.
bool doTouch(MeshArrays const& mesh, std::size_t t, std::size_t u)
{
    return !(passesThrough(mesh, t, u) && passesThrough(mesh, u, t)) && doTrianglesMeet(mesh, t, u);
}

/// Some triangles of a piece, on points of their own.
MeshArrays compacted(std::span<PieceTriangle const> piece, std::vector<std::size_t> const& some,
                     std::vector<Point> const& places, StageProgress& progress)
{
    constexpr Index none = 0xffffffff;
    std::vector<Index> locals(places.size(), none);
    MeshArrays mesh;
    mesh.triangles.reserve(some.size());
    Polling polling(progress);
    for (std::size_t const t : some) {
        polling.step();
        Corners corners;
        for (std::size_t k = 0; k < 3; ++k) {
            Index& local = locals[piece[t].corners[k]];
            if (local == none) {
                local = Index(mesh.points.size());
                mesh.points.push_back(places[piece[t].corners[k]]);
            }
            corners[k] = local;
        }
        mesh.triangles.push_back(corners);
    }
    return mesh;
}

bool isFlat(MeshArrays const& mesh, std::size_t t)
{
    return ExactSigns::areCollinear(mesh.point(t, 0), mesh.point(t, 1), mesh.point(t, 2));
}

/// Those triangles of a mesh that meet others, where one of both is asked about.
std::vector<std::size_t> findMeeting(MeshArrays const& mesh, std::vector<bool> const& asked,
                                     StageProgress& progress)
{
    TopologyReport const topology = starsOfAsked(mesh, asked, progress);
    TriangleTree const tree(mesh, topology, progress);
    IntersectionReport const report = findIntersections(mesh, topology, tree, progress, asked);
    std::vector<std::size_t> meeting;
    for (std::size_t i = 0; i < mesh.triangles.size() && report.pairs > 0; ++i)
        if (report.isInvolved[i] != 0)
            meeting.push_back(i);
    return meeting;
}

/// Calls `visit` with the pairs of some triangles whose boxes overlap, until it returns false.
template <typename Visit>
void visitOverlapping(MeshArrays const& mesh, std::vector<std::size_t> const& some,
                      StageProgress& progress, Visit const& visit)
{
    Polling polling(progress);
    std::vector<std::pair<Box, std::size_t>> order;
    order.reserve(some.size());
    for (std::size_t const t : some)
        order.emplace_back(boxOf(mesh.triangles[t], mesh.points), t);
    sortPolled(order, progress, [](auto const& a, auto const& b) {
        return a.first.low[0] != b.first.low[0] ? a.first.low[0] < b.first.low[0]
                                                : a.second < b.second;
    });
    for (std::size_t i = 0; i < order.size(); ++i)
        for (std::size_t j = i + 1;
             j < order.size() && order[j].first.low[0] <= order[i].first.high[0]; ++j) {
            polling.step();
            if (order[i].first.overlaps(order[j].first) && !visit(order[i].second, order[j].second))
                return;
        }
}

}  // namespace

std::vector<RoundingCrossings::Pair> RoundingCrossings::find(std::span<PieceTriangle const> piece,
                                                             std::vector<Point> const& places,
                                                             StageProgress& progress,
                                                             std::vector<bool> const& among) const
{
    auto const isAmong = [&](PieceTriangle const& t) {
        return among.empty() || among[t.corners[0]] || among[t.corners[1]] || among[t.corners[2]];
    };
    std::vector<bool> isMade(piece.size());
    Box bounds;
    Polling polling(progress);
    for (std::size_t t = 0; t < piece.size(); ++t, polling.step())
        if (isAmong(piece[t]) && !isAsInOperand(piece[t], places)) {
            isMade[t] = true;
            bounds.add(boxOf(piece[t].corners, places));
        }
    BoxCells cells(bounds);
    for (std::size_t t = 0; t < piece.size(); ++t, polling.step())
        if (isMade[t])
            cells.add(boxOf(piece[t].corners, places));
    std::vector<std::size_t> near;
    for (std::size_t t = 0; t < piece.size(); ++t, polling.step())
        if (isMade[t] || cells.areMetBy(boxOf(piece[t].corners, places)))
            near.push_back(t);
    if (near.empty())
        return {};
    MeshArrays const mesh = compacted(piece, near, places, progress);
    std::vector<Pair> pairs;
    std::vector<bool> asked(near.size());
    for (std::size_t i = 0; i < near.size(); ++i)
        asked[i] = isMade[near[i]];
    auto const meeting = findMeeting(mesh, asked, progress);
    visitOverlapping(mesh, meeting, progress, [&](std::size_t a, std::size_t b) {
        auto const [t, u] = std::minmax(near[a], near[b]);
        if ((isMade[t] || isMade[u]) && (hasFree(piece[t]) || hasFree(piece[u])) &&
            !isFlat(mesh, a) && !isFlat(mesh, b) && doTrianglesMeet(mesh, a, b) &&
            isOfRounding(piece[t], piece[u]))
            pairs.push_back({t, u});
        return pairs.size() < mostPairs;
    });
    std::sort(pairs.begin(), pairs.end());
    return pairs;
}

bool RoundingCrossings::isDeep(MeshArrays const& mesh, std::size_t t, std::size_t u)
{
    auto const cornersOf = [&](std::size_t which) {
        return std::array{mesh.point(which, 0), mesh.point(which, 1), mesh.point(which, 2)};
    };
    auto const a = cornersOf(t), b = cornersOf(u);
    float unit = 0;
    for (std::size_t k = 0; k < 3; ++k)
        unit = std::max({unit, unitOf(a[k]), unitOf(b[k])});
    return crossingDepth(a, b) > mostRoundingUnits * double(unit);
}

bool RoundingCrossings::isAsInOperand(PieceTriangle const& t,
                                      std::vector<Point> const& places) const
{
    int const second = t.isTurned ? 2 : 1;
    return places[t.corners[0]] == m_soup.mesh.point(t.triangle, 0) &&
           places[t.corners[1]] == m_soup.mesh.point(t.triangle, second) &&
           places[t.corners[2]] == m_soup.mesh.point(t.triangle, 3 - second);
}

/// Whether two triangles do not come from two that cross in one operand, or touch there.
bool RoundingCrossings::isOfRounding(PieceTriangle const& t, PieceTriangle const& u) const
{
    return t.triangle == u.triangle ||
           m_soup.operandOf(t.triangle) != m_soup.operandOf(u.triangle) ||
           !(isDeep(m_soup.mesh, t.triangle, u.triangle) ||
             doTouch(m_soup.mesh, t.triangle, u.triangle));
}

bool RoundingCrossings::hasFree(PieceTriangle const& t) const
{
    return std::any_of(t.corners.begin(), t.corners.end(),
                       [this](Index corner) { return m_isFree[corner]; });
}
