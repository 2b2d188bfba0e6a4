// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/PointSnap.h"

#include <algorithm>
#include <cmath>

namespace Freecut {

namespace {

constexpr double fullTurn = 360;
constexpr double angleStep = 15;
constexpr double degreesPerRadian = 180 / M_PI;

double distance(Place const& a, Place const& b)
{
    return std::hypot(double(b.X()) - a.X(), double(b.Y()) - a.Y());
}

Place nearestOnEdge(Place const& place, std::pair<Place, Place> const& edge)
{
    auto const& [a, b] = edge;
    double const x = double(b.X()) - a.X(), y = double(b.Y()) - a.Y();
    double const square = x * x + y * y;
    if (square == 0)
        return a;
    double const along =
        ((double(place.X()) - a.X()) * x + (double(place.Y()) - a.Y()) * y) / square;
    double const share = std::clamp(along, 0.0, 1.0);
    return {float(a.X() + share * x), float(a.Y() + share * y)};
}

/// The nearest of the coordinates of some places if it is near enough, else the value.
template <typename Coordinate>
float alignedCoordinate(float value, std::vector<Place> const& places, Coordinate const& of,
                        float reach)
{
    float best = value, least = reach;
    for (Place const& place : places)
        if (std::abs(of(place) - value) < least) {
            least = std::abs(of(place) - value);
            best = of(place);
        }
    return best;
}

}  // namespace

EdgeMeasure measureEdge(Place const& from, Place const& to)
{
    double const angle = std::atan2(double(to.Y()) - from.Y(), double(to.X()) - from.X());
    double const degrees = std::fmod(angle * degreesPerRadian + fullTurn, fullTurn);
    return {distance(from, to), degrees};
}

Place onRoundEdge(Place const& from, Place const& to, float lengthStep)
{
    EdgeMeasure const edge = measureEdge(from, to);
    double const angle = std::round(edge.degrees / angleStep) * angleStep / degreesPerRadian;
    double const length = std::max(std::round(edge.length / lengthStep), 1.0) * lengthStep;
    return {float(from.X() + length * std::cos(angle)), float(from.Y() + length * std::sin(angle))};
}

Place snapped(Place const& place, SnapTargets const& targets, float reach)
{
    Place best = place;
    double least = reach;
    auto const offer = [&](Place const& target) {
        if (double const way = distance(place, target); way < least) {
            least = way;
            best = target;
        }
    };
    std::for_each(targets.corners.begin(), targets.corners.end(), offer);
    if (least < reach)
        return best;
    for (auto const& edge : targets.edges)
        offer(nearestOnEdge(place, edge));
    if (least < reach)
        return best;
    return {alignedCoordinate(
                place.X(), targets.aligned, [](Place const& p) { return p.X(); }, reach),
            alignedCoordinate(
                place.Y(), targets.aligned, [](Place const& p) { return p.Y(); }, reach)};
}

}  // namespace Freecut
