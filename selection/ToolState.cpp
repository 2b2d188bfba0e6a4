// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/ToolState.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace Freecut {

namespace {

using Point = UPoint3<float>;
using Points = std::vector<Point>;

/// Of the largest coordinate: what a turn of the view there and back may cost.
constexpr float turningError = 1e-5f;

constexpr std::vector<Point> TeethEdge::*toothLists[] = {
    &TeethEdge::basePoints, &TeethEdge::handlePoints, &TeethEdge::teethPoints,
    &TeethEdge::appliedPoints};

float reachOf(Points const& points)
{
    float reach = 0;
    for (Point const& point : points)
        for (int axis = 0; axis < 3; ++axis)
            reach = std::max(reach, std::abs(point[axis]));
    return reach;
}

/// Whether two places are the same as they are seen.
struct AreNear
{
    bool operator()(Point const& p, Point const& q) const
    {
        UVector3<float> const way = p - q;
        return (way - depthAxis * (way | depthAxis)).GetLength() <= tolerance;
    }
    bool operator()(Points const& a, Points const& b) const
    {
        return std::equal(a.begin(), a.end(), b.begin(), b.end(), *this);
    }
    bool operator()(TeethEdge const& a, TeethEdge const& b) const
    {
        TeethEdge withOwnPoints = b;
        for (auto const list : toothLists) {
            if (!(*this)(a.*list, b.*list))
                return false;
            withOwnPoints.*list = a.*list;
        }
        return a == withOwnPoints;
    }

    UVector3<float> depthAxis;
    float tolerance;
};

template <typename Same>
bool haveSameTeeth(ToolState const& a, ToolState const& b, Same const& same)
{
    if (a.edges == b.edges)
        return true;
    return a.edges && b.edges &&
           std::equal(a.edges->begin(), a.edges->end(), b.edges->begin(), b.edges->end(), same);
}

}  // namespace

RigidMotion turnBetween(CameraPose const& from, CameraPose const& to)
{
    UVector3<float> const before = from.eye - from.ref, now = to.eye - to.ref;
    if (before == now && from.up == to.up)
        return {};
    return {to.ref, Axes::ofView(before, from.up), Axes::ofView(now, to.up)};
}

ToolState turnedTo(ToolState state, RigidMotion const& turns)
{
    if (state.turns == turns)
        return state;
    RigidMotion const motion = state.turns.inverse().then(turns);
    auto const turn = [&](Points& points) {
        for (Point& point : points)
            point = motion(point);
    };
    turn(state.points);
    if (state.edges) {
        std::vector<TeethEdge> edges = *state.edges;
        for (TeethEdge& edge : edges)
            for (auto const list : toothLists)
                turn(edge.*list);
        state.edges = std::make_shared<std::vector<TeethEdge> const>(std::move(edges));
    }
    state.turns = turns;
    return state;
}

bool isSameEdit(ToolState const& a, ToolState const& b)
{
    if (!(a.values == b.values && a.picks == b.picks && a.points.size() == b.points.size() &&
          a.beside == b.beside))
        return false;
    if (a.turns == b.turns)
        return a.points == b.points && haveSameTeeth(a, b, std::equal_to<TeethEdge>());
    AreNear const areNear{b.depthAxis,
                          turningError * std::max(reachOf(a.points), reachOf(b.points))};
    ToolState const there = turnedTo(a, b.turns);
    return areNear(there.points, b.points) && haveSameTeeth(there, b, areNear);
}

}  // namespace Freecut
