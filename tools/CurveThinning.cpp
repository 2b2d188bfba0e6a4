// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/CurveThinning.h"

#include <cmath>

namespace Freecut {

namespace {

using Vector = UVector2<double>;

double cross(Vector const& a, Vector const& b)
{
    return a.X() * b.Y() - a.Y() * b.X();
}

/// The directions from a point in which straight lines pass other points within a tolerance (after
/// Sklansky and Gonzalez, Fast polygonal approximation of digitized curves, 1980).
class DirectionRange
{
public:
    explicit DirectionRange(double tolerance) : m_tolerance(tolerance) {}

    bool holds(Vector const& way) const
    {
        return !m_isBounded || (cross(m_low, way) >= 0 && cross(way, m_high) >= 0 &&
                                m_low.X() * way.X() + m_low.Y() * way.Y() > 0);
    }

    /// Takes out the directions that pass a place farther than the tolerance.
    void narrow(Vector const& way)
    {
        double const length = std::sqrt(way.X() * way.X() + way.Y() * way.Y());
        if (length <= m_tolerance)
            return;
        double const sine = m_tolerance / length, cosine = std::sqrt(1 - sine * sine);
        Vector const low(way.X() * cosine + way.Y() * sine, way.Y() * cosine - way.X() * sine);
        Vector const high(way.X() * cosine - way.Y() * sine, way.Y() * cosine + way.X() * sine);
        if (!m_isBounded || cross(m_low, low) > 0)
            m_low = low;
        if (!m_isBounded || cross(high, m_high) > 0)
            m_high = high;
        m_isBounded = true;
    }

private:
    double m_tolerance;
    Vector m_low, m_high;
    bool m_isBounded = false;
};

}  // namespace

std::size_t straightReach(Curve const& curve, std::size_t from, double tolerance)
{
    DirectionRange range(tolerance);
    double reached = 0;
    std::size_t to = from;
    // An edge may end where all points since its start lie beside it, each farther on.
    for (; to < curve.size(); ++to) {
        Vector const way = curve[to + 1 < curve.size() ? to + 1 : 0] - curve[from];
        double const distance = way.X() * way.X() + way.Y() * way.Y();
        if (to > from && (distance < reached || !range.holds(way)))
            break;
        range.narrow(way);
        reached = distance;
    }
    return to;
}

Curve thinned(Curve const& curve, double tolerance, WorkPoll const& poll)
{
    Curve kept;
    PollSteps polling(poll);
    for (std::size_t from = 0; from < curve.size();) {
        kept.push_back(curve[from]);
        std::size_t const to = straightReach(curve, from, tolerance);
        polling.step(to - from);
        from = to;
    }
    return kept.size() < 3 ? curve : kept;
}

Curve withoutRepeats(Curve const& curve)
{
    Curve points;
    points.reserve(curve.size());
    for (UPoint2<double> const& point : curve)
        if (points.empty() || point != points.back())
            points.push_back(point);
    while (points.size() > 1 && points.front() == points.back())
        points.pop_back();
    return points;
}

}  // namespace Freecut
