// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/CurveCrossings.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Freecut {

namespace {

__extension__ using Wide = __int128;

/// Steps into which a unit is divided, as a power of two; fewer if coordinates are large.
constexpr int finestBits = 28;
/// Points are moved by up to this part of a unit, as a power of two.
constexpr int shakeBits = 10;
/// Coordinates have as many bits at most, so that products of differences fit.
constexpr int coordinateBits = 60;

/// What looking for the pairs of a block costs besides, in steps of work.
constexpr std::size_t stepsOfBlock = 16;

/// Equally distributed numbers (Steele, Lea and Flood, Fast splittable pseudorandom number
/// generators, 2014).
std::uint64_t scrambled(std::uint64_t z)
{
    z += 0x9e3779b97f4a7c15u;
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
    return z ^ (z >> 31);
}

double largestCoordinate(Curves const& curves)
{
    double largest = 1;
    for (Curve const& curve : curves)
        for (UPoint2<double> const& p : curve)
            largest = std::max({largest, std::abs(p.X()), std::abs(p.Y())});
    return largest;
}

}  // namespace

ShakenCurves::ShakenCurves(Curves const& curves, unsigned attempt, WorkPoll const& poll)
    : m_poll(poll)
{
    PollSteps polling(poll);
    int const bits =
        std::min(finestBits, coordinateBits - 2 - std::ilogb(largestCoordinate(curves)));
    double const steps = std::ldexp(1.0, bits);
    int const amplitudeBits = std::max(bits - shakeBits, 3);
    std::uint64_t const mask = (std::uint64_t(2) << amplitudeBits) - 1;
    std::int64_t const middle = std::int64_t(1) << amplitudeBits;
    std::size_t total = 0;
    for (Curve const& curve : curves)
        total += curve.size();
    m_points.reserve(total);
    m_before.reserve(total);
    m_after.reserve(total);
    m_starts.push_back(0);
    for (Curve const& curve : curves) {
        std::uint32_t const start = m_starts.back();
        std::uint32_t const end = start + std::uint32_t(curve.size());
        for (std::uint32_t i = start; i < end; ++i, polling.step()) {
            std::uint64_t const noise = scrambled((std::uint64_t(attempt) << 32) + i);
            UPoint2<double> const& p = curve[i - start];
            m_points.push_back(
                {std::llround(p.X() * steps) + std::int64_t(noise & mask) - middle,
                 std::llround(p.Y() * steps) + std::int64_t((noise >> 32) & mask) - middle});
            m_before.push_back(i > start ? i - 1 : end - 1);
            m_after.push_back(i + 1 < end ? i + 1 : start);
        }
        m_starts.push_back(end);
    }
    // Rounding keeps the order of numbers, so boxes of segments that meet still do.
    for (std::uint32_t i = 0; i < m_points.size(); ++i, polling.step()) {
        Point const &p = m_points[i], &q = m_points[after(i)];
        m_boxes.add({float(std::min(p.x, q.x)), float(std::min(p.y, q.y)),
                     float(std::max(p.x, q.x)), float(std::max(p.y, q.y))});
    }
    m_boxes.finish();
}

namespace {

/// Twice the area of a triangle, positive if it turns left.
template <typename Point>
Wide exactTurn(Point const& a, Point const& b, Point const& c)
{
    return Wide(b.x - a.x) * (c.y - a.y) - Wide(b.y - a.y) * (c.x - a.x);
}

}  // namespace

int ShakenCurves::turn(std::uint32_t a, std::uint32_t b, std::uint32_t c) const
{
    Point const &p = m_points[a], &q = m_points[b], &r = m_points[c];
    double const left = double(q.x - p.x) * double(r.y - p.y);
    double const right = double(q.y - p.y) * double(r.x - p.x);
    // Each factor is off by a part of 2^-53, and so is each product and the difference.
    double const error = (std::abs(left) + std::abs(right)) * 0x1p-50;
    double const value = left - right;
    if (std::abs(value) > error)
        return value > 0 ? 1 : -1;
    Wide const exact = exactTurn(p, q, r);
    return exact > 0 ? 1 : exact < 0 ? -1 : 0;
}

std::optional<CurveCrossing> ShakenCurves::crossing(std::uint32_t first, std::uint32_t second,
                                                    bool& isTied) const
{
    std::uint32_t const a = first, b = after(first), c = second, d = after(second);
    if (b == c || d == a)
        return {};
    int const fromC = turn(a, b, c), fromD = turn(a, b, d);
    if (fromC * fromD > 0)
        return {};
    int const fromA = turn(c, d, a), fromB = turn(c, d, b);
    if (fromA * fromB > 0)
        return {};
    isTied = isTied || fromC * fromD * fromA * fromB == 0;
    if (isTied)
        return {};
    Wide const atA = exactTurn(m_points[c], m_points[d], m_points[a]);
    Wide const atB = exactTurn(m_points[c], m_points[d], m_points[b]);
    Wide const atC = exactTurn(m_points[a], m_points[b], m_points[c]);
    Wide const atD = exactTurn(m_points[a], m_points[b], m_points[d]);
    return CurveCrossing{first, second, double(atA) / double(atA - atB),
                         double(atC) / double(atC - atD), fromD > 0};
}

ShakenCurves::Search ShakenCurves::findCrossings(std::size_t mostCrossings,
                                                 std::vector<CurveCrossing>& crossings) const
{
    bool isTied = false;
    PollSteps polling(m_poll);
    crossings.clear();
    auto const visit = [&](std::uint32_t i, std::uint32_t j) {
        polling.step();
        if (std::optional<CurveCrossing> const found = crossing(i, j, isTied))
            crossings.push_back(*found);
        return isTied || crossings.size() > mostCrossings;
    };
    m_boxes.visitMeetingPairs(visit, [&] { polling.step(stepsOfBlock); });
    if (isTied)
        return Search::Tied;
    return crossings.size() > mostCrossings ? Search::TooMany : Search::Done;
}

ShakenCurves::Lowest ShakenCurves::lowestOf(std::size_t curve) const
{
    std::uint32_t lowest = m_starts[curve];
    PollSteps polling(m_poll);
    for (std::uint32_t i = lowest; i < m_starts[curve + 1]; ++i, polling.step())
        if (m_points[i].y < m_points[lowest].y)
            lowest = i;
    return {lowest, turn(before(lowest), lowest, after(lowest)) > 0};
}

std::optional<int> ShakenCurves::windingBelow(std::size_t curve) const
{
    std::uint32_t const lowest = lowestOf(curve).point;
    std::int64_t const x = m_points[lowest].x;
    int winding = 0;
    bool isTied = false;
    constexpr float far = std::numeric_limits<float>::infinity();
    m_boxes.visitMeeting(
        {float(x), -far, float(x), float(m_points[lowest].y)}, [&](std::uint32_t i) {
            bool const isRightward = m_points[i].x < x && x <= m_points[after(i)].x;
            bool const isLeftward = m_points[after(i)].x < x && x <= m_points[i].x;
            if ((!isRightward && !isLeftward) || i == lowest || after(i) == lowest)
                return false;
            int const side = turn(i, after(i), lowest);
            isTied = isTied || side == 0;
            if (isRightward && side > 0)
                ++winding;
            if (isLeftward && side < 0)
                --winding;
            return isTied;
        });
    return isTied ? std::nullopt : std::optional(winding);
}

}  // namespace Freecut
