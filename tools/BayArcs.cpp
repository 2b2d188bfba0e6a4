// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/BayArcs.h"

#include "tools/CurveThinning.h"

#include <algorithm>
#include <cmath>

namespace Freecut {

namespace {

using Point = UPoint2<double>;
using Vector = UVector2<double>;

/// The longest chord of an arc, in radii. With less than two, a bay that lies between the
/// perpendiculars at the chord's ends has no room for the disk.
constexpr double longestChord = 1.8;
/// Below this radius, in tolerances, there would be.
constexpr double leastRadius = 20;

double dot(Vector const& a, Vector const& b)
{
    return a.X() * b.X() + a.Y() * b.Y();
}

double cross(Vector const& a, Vector const& b)
{
    return a.X() * b.Y() - a.Y() * b.X();
}

double squaredDistance(Point const& p, Point const& a, Point const& b)
{
    Vector const along = b - a, way = p - a;
    double const length = dot(along, along);
    double const t = length > 0 ? std::clamp(dot(along, way) / length, 0.0, 1.0) : 0.0;
    Vector const beside(way.X() - t * along.X(), way.Y() - t * along.Y());
    return dot(beside, beside);
}

class Bays
{
public:
    Bays(Curve const& outline, double distance, double tolerance)
        : m_outline(outline), m_distance(distance), m_tolerance(tolerance)
    {}

    /// The centre of the arc that fills the bay between two points; nothing if there is no such
    /// bay.
    std::optional<Point> centreOf(std::size_t from, std::size_t to) const
    {
        Point const &a = point(from), &b = point(to);
        Vector const chord = b - a;
        double const squared = dot(chord, chord), radius = std::abs(m_distance);
        if (squared == 0 || squared > longestChord * longestChord * radius * radius)
            return {};
        double const away = std::copysign(std::sqrt(radius * radius / squared - 0.25), m_distance);
        Point const centre((a.X() + b.X()) / 2 + chord.Y() * away,
                           (a.Y() + b.Y()) / 2 - chord.X() * away);
        // Most of what is no bay is seen in its middle.
        if (!liesInBay((from + to) / 2, a, chord, centre))
            return {};
        for (std::size_t i = from; i < to; ++i)
            if (!liesInBay(i, a, chord, centre))
                return {};
        return centre;
    }

    /// The end of a bay that reaches farther than `beyond`; `beyond` if there is none. Looks twice
    /// as far each time, then between the last bay and what is none.
    std::size_t reach(std::size_t from, std::size_t beyond) const
    {
        std::size_t const end = m_outline.size();
        std::size_t good = beyond, step = 1;
        while (good + step <= end && centreOf(from, good + step)) {
            good += step;
            step *= 2;
        }
        while ((step /= 2) > 0)
            if (good + step <= end && centreOf(from, good + step))
                good += step;
        return good;
    }

private:
    /// The edge that starts here is on the chord's far side, between the perpendiculars at its
    /// ends, and away from the centre; each within the tolerance.
    bool liesInBay(std::size_t i, Point const& start, Vector const& chord,
                   Point const& centre) const
    {
        Vector const way = point(i) - start;
        double const squared = dot(chord, chord), reach = m_tolerance * std::sqrt(squared);
        double const along = dot(chord, way);
        double const nearest = std::abs(m_distance) - m_tolerance;
        return along >= -reach && along <= squared + reach &&
               std::copysign(1.0, m_distance) * cross(chord, way) >= -reach &&
               squaredDistance(centre, point(i), point(i + 1)) >= nearest * nearest;
    }
    Point const& point(std::size_t i) const { return m_outline[i < m_outline.size() ? i : 0]; }

    Curve const& m_outline;
    double m_distance;
    double m_tolerance;
};

/// The points of an arc behind its first one.
void appendArc(Curve& curve, Point const& from, Point const& centre, Point const& to,
               double tolerance)
{
    Vector const a = from - centre, b = to - centre;
    double const angle = std::atan2(cross(a, b), dot(a, b));
    double const radius = std::sqrt(dot(a, a));
    double const step = 2 * std::acos(1 - std::min(tolerance / radius, 1.0));
    int const steps = int(std::ceil(std::abs(angle) / step));
    for (int i = 1; i < steps; ++i) {
        double const c = std::cos(angle * i / steps), s = std::sin(angle * i / steps);
        curve.emplace_back(centre.X() + a.X() * c - a.Y() * s, centre.Y() + a.X() * s + a.Y() * c);
    }
}

}  // namespace

SidesWithArcs withBaysFilled(Curve const& outline, double distance, double tolerance,
                             WorkPoll const& poll)
{
    Curve const points = withoutRepeats(outline);
    Bays const bays(points, distance, tolerance);
    bool const hasBays = std::abs(distance) >= leastRadius * tolerance;
    SidesWithArcs sides;
    PollSteps polling(poll);
    for (std::size_t from = 0; from < points.size();) {
        std::size_t const straight = straightReach(points, from, tolerance);
        std::size_t const to = hasBays ? bays.reach(from, straight) : straight;
        sides.push_back({points[from], to > straight ? bays.centreOf(from, to) : std::nullopt});
        polling.step(to - from);
        from = to;
    }
    return sides.size() < 3 ? SidesWithArcs() : sides;
}

Curve flattened(SidesWithArcs const& outline, double tolerance)
{
    Curve curve;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        SideOrArc const& side = outline[i];
        curve.push_back(side.start);
        if (side.centre)
            appendArc(curve, side.start, *side.centre,
                      outline[i + 1 < outline.size() ? i + 1 : 0].start, tolerance);
    }
    return curve;
}

}  // namespace Freecut
