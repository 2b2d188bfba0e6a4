// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/OutlineOffset.h"

#include "tools/CurveCrossings.h"
#include "tools/CurveThinning.h"
#include "tools/GridLoops.h"
#include "tools/OffsetCurves.h"
#include "tools/WoundRegion.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace Freecut {

namespace {

constexpr double gridUnitsPerMm = 1000.0;

/// With more crossings an outline is moved by half the way first. Corners near to each other are
/// then merged early, which leaves less to cross for the rest of the way.
constexpr std::size_t manyCrossings = 2'000'000;
/// Some gigabytes. Steps this short are not divided any more.
constexpr std::size_t mostCrossings = 40'000'000;
constexpr double shortStep = 8;

/// With more points than that, most are those of arcs whose edges are only a few units long. Their
/// directions are off by degrees, so that arcs moved to about their centres cross themselves
/// thousands of times.
constexpr std::size_t manyPoints = 4000;
/// What the moved outlines may be off by in that case.
constexpr double thinningTolerance = 1;

double truncated(double distance)
{
    return double(std::int64_t(distance * gridUnitsPerMm));
}

Curves curvesOf(Loops const& outlines, SketchPlane const& plane, WorkPoll const& poll)
{
    PollSteps polling(poll);
    Curves curves;
    curves.reserve(outlines.size());
    for (Ring const& ring : outlines) {
        Curve& curve = curves.emplace_back();
        curve.reserve(ring.size());
        for (UPoint3<float> const& point : ring) {
            polling.step();
            UPoint3<float> const eye = plane.toEye(point);
            curve.emplace_back(std::trunc(eye.X() * 1000.0f), std::trunc(eye.Y() * 1000.0f));
        }
    }
    return curves;
}

double signedArea(Curve const& curve)
{
    double area = 0;
    for (std::size_t i = 0; i < curve.size(); ++i) {
        UPoint2<double> const &a = curve[i], &b = curve[i + 1 < curve.size() ? i + 1 : 0];
        area += (a.X() + b.X()) * (b.Y() - a.Y()) / 2;
    }
    return area;
}

std::size_t countOf(Curves const& curves)
{
    std::size_t count = 0;
    for (Curve const& curve : curves)
        count += curve.size();
    return count;
}

/// The highest point counts more the higher it is, then the farther to the left.
template <typename Point>
std::pair<double, double> heightOf(std::vector<Point> const& curve)
{
    std::pair<double, double> highest(-HUGE_VAL, 0);
    for (Point const& p : curve)
        highest = std::max(highest, std::pair(double(p.Y()), -double(p.X())));
    return highest;
}

void makeHighestRunAnticlockwise(Curves& curves)
{
    Curve const* highest = nullptr;
    std::pair<double, double> height;
    for (Curve const& curve : curves) {
        std::pair<double, double> const other = heightOf(curve);
        if (!highest || height < other) {
            highest = &curve;
            height = other;
        }
    }
    if (!highest || signedArea(*highest) >= 0)
        return;
    for (Curve& curve : curves)
        std::reverse(curve.begin(), curve.end());
}

/// The highest first.
GridLoops sortedByHeight(GridLoops loops)
{
    std::vector<std::pair<std::pair<double, double>, std::size_t>> order;
    for (std::size_t i = 0; i < loops.size(); ++i) {
        auto const [y, negativeX] = heightOf(loops[i]);
        order.push_back({{-y, -negativeX}, i});
    }
    std::sort(order.begin(), order.end());
    GridLoops sorted;
    sorted.reserve(loops.size());
    for (auto const& [height, i] : order)
        sorted.push_back(std::move(loops[i]));
    return sorted;
}

bool canBeHeld(Curves const& curves)
{
    return std::all_of(curves.begin(), curves.end(), [](Curve const& curve) {
        return std::all_of(curve.begin(), curve.end(), [](UPoint2<double> const& p) {
            // Written so that what is no number cannot, too.
            return std::abs(p.X()) < ShakenCurves::reach && std::abs(p.Y()) < ShakenCurves::reach;
        });
    });
}

/// Where an outline turns back on itself it cannot be told on which side it goes on.
bool turnsBack(Curve const& curve)
{
    std::size_t const n = curve.size();
    for (std::size_t i = 0; i < n; ++i) {
        UVector2<double> const in = curve[i] - curve[i > 0 ? i - 1 : n - 1];
        UVector2<double> const out = curve[i + 1 < n ? i + 1 : 0] - curve[i];
        if (in.X() * out.Y() == in.Y() * out.X() && in.X() * out.X() + in.Y() * out.Y() < 0)
            return true;
    }
    return false;
}

bool haveCrossings(Curves const& curves, WorkPoll const& poll)
{
    if (std::any_of(curves.begin(), curves.end(), turnsBack))
        return true;
    std::vector<CurveCrossing> crossings;
    return ShakenCurves(curves, 0, poll).findCrossings(0, crossings) != ShakenCurves::Search::Done;
}

bool fitsIntoSquare(Curve const& curve, double side)
{
    auto const fits = [&](auto coordinate) {
        auto const [low, high] = std::minmax_element(
            curve.begin(), curve.end(),
            [&](auto const& a, auto const& b) { return coordinate(a) < coordinate(b); });
        return coordinate(*high) - coordinate(*low) <= side;
    };
    return curve.empty() || (fits([](UPoint2<double> const& p) { return p.X(); }) &&
                             fits([](UPoint2<double> const& p) { return p.Y(); }));
}

bool isShortJoined(Curve const& outline, double distance)
{
    return !fitsIntoSquare(outline, 2 * std::abs(distance));
}

/// The images of outlines with their narrow bays filled; nothing if these cross themselves.
std::optional<Curves> imagesWithBaysFilled(Curves const& outlines, double distance,
                                           WorkPoll const& poll)
{
    Curves images, flat;
    for (Curve const& outline : outlines) {
        SidesWithArcs const sides = withBaysFilled(outline, distance, thinningTolerance, poll);
        Curve corners;
        for (SideOrArc const& side : sides)
            corners.push_back(side.start);
        if (!isShortJoined(corners, distance))
            return {};
        images.push_back(offsetCurve(sides, distance, poll));
        flat.push_back(flattened(sides, thinningTolerance));
    }
    return haveCrossings(flat, poll) ? std::nullopt : std::optional(std::move(images));
}

std::optional<Curves> movedCurves(Curves const& outlines, double distance, bool areSimple,
                                  WorkPoll const& poll)
{
    Curves images;
    for (Curve const& outline : outlines) {
        bool const isShort = areSimple && isShortJoined(outline, distance);
        Curve image = offsetCurve(outline, distance,
                                  isShort ? InnerJoin::Short : InnerJoin::ThroughCorner, poll);
        if (!image.empty())
            images.push_back(std::move(image));
    }
    bool const isLast = std::abs(distance) <= shortStep;
    std::optional<Curves> region =
        outlineOfWoundRegion(images, isLast ? mostCrossings : manyCrossings, poll);
    if (region || isLast)
        return region;
    images = {};
    region = movedCurves(outlines, distance / 2, areSimple, poll);
    return region ? movedCurves(*region, distance / 2, true, poll) : region;
}

}  // namespace

OutlineOffset::OutlineOffset(Loops const& outlines, SketchPlane const& plane, WorkPoll poll)
    : m_plane(plane),
      m_poll(std::move(poll)),
      m_outlines(curvesOf(outlines, plane, m_poll)),
      m_canBeHeld(canBeHeld(m_outlines))
{
    m_pointCount = countOf(m_outlines);
    if (!m_canBeHeld)
        return;
    makeHighestRunAnticlockwise(m_outlines);
    m_hasManyPoints = m_pointCount > manyPoints;
    if (!m_hasManyPoints)
        m_isSimple = !haveCrossings(m_outlines, m_poll);
}

std::optional<Curves> OutlineOffset::movedRegion(double distance) const
{
    if (!m_canBeHeld)
        return {};
    if (!m_hasManyPoints)
        return movedCurves(m_outlines, distance, m_isSimple, m_poll);
    if (std::optional<Curves> const images = imagesWithBaysFilled(m_outlines, distance, m_poll))
        if (std::optional<Curves> region = outlineOfWoundRegion(*images, manyCrossings, m_poll))
            return region;
    Curves outlines;
    for (Curve const& outline : m_outlines)
        outlines.push_back(thinned(outline, thinningTolerance, m_poll));
    return movedCurves(outlines, distance, !haveCrossings(outlines, m_poll), m_poll);
}

std::optional<Loops> OutlineOffset::moved(double distance) const
{
    std::optional<Curves> const region = movedRegion(truncated(distance));
    if (!region)
        return {};
    GridLoops const loops = sortedByHeight(onGrid(*region, m_poll));
    Loops outlines;
    outlines.reserve(loops.size());
    PollSteps polling(m_poll);
    for (GridLoop const& loop : loops) {
        Ring& ring = outlines.emplace_back();
        ring.reserve(loop.size());
        for (UPoint2<std::int64_t> const& point : loop) {
            polling.step();
            ring.push_back(m_plane.toWorld(float(double(point.X()) / gridUnitsPerMm),
                                           float(double(point.Y()) / gridUnitsPerMm)));
        }
    }
    return outlines;
}

}  // namespace Freecut
