// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/OffsetCurves.h"

#include "tools/CurveThinning.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Freecut {

namespace {

using Point = UPoint2<double>;
using Vector = UVector2<double>;

/// The largest distance of a curve from the arc that it stands for.
constexpr double arcTolerance = 0.25;

/// To the right of a side, of unit length.
Vector normalOf(Point const& from, Point const& to)
{
    double const dx = to.X() - from.X(), dy = to.Y() - from.Y();
    double const scale = 1 / std::sqrt(dx * dx + dy * dy);
    return {dy * scale, -(dx * scale)};
}

/// At a point of a side that may be an arc; an arc's normal passes its centre at the distance.
Vector normalAt(Point const& point, Point const& from, Point const& to,
                std::optional<Point> const& centre, double distance)
{
    if (!centre)
        return normalOf(from, to);
    return {(centre->X() - point.X()) / distance, (centre->Y() - point.Y()) / distance};
}

Point moved(Point const& point, Vector const& way, double distance)
{
    return {point.X() + way.X() * distance, point.Y() + way.Y() * distance};
}

/// Moves the corners of an outline one after the other.
class CornerJoins
{
public:
    CornerJoins(Curve& curve, double distance, InnerJoin inner, WorkPoll const& poll)
        : m_curve(curve),
          m_distance(distance),
          m_inner(inner),
          // A chord of this half angle is as far from its arc as it may be.
          m_stepsPerRadian(0.5 / std::acos(1 - relativeTolerance(distance))),
          // Where the images' lines meet is then as near to the arc as a chord of it.
          m_straightCosine(2 / square(1 + relativeTolerance(distance)) - 1),
          m_polling(poll)
    {}

    /// in, out  the normals of the sides before and after the corner, which are straight
    void add(Point const& corner, Vector const& in, Vector const& out)
    {
        double const sine = in.X() * out.Y() - out.X() * in.Y();
        double const cosine = in.X() * out.X() + in.Y() * out.Y();
        bool const isOuter = sine * m_distance >= 0;
        bool const isNearlyStraight = cosine >= m_straightCosine;
        if (isNearlyStraight && (isOuter || m_inner == InnerJoin::Short))
            m_curve.push_back(
                moved(corner, {in.X() + out.X(), in.Y() + out.Y()}, m_distance / (1 + cosine)));
        else
            addBetweenImages(corner, in, out);
    }

    /// A corner from which both images are kept: that of an arc next to it has no line on which it
    /// could meet the other one.
    void addBetweenImages(Point const& corner, Vector const& in, Vector const& out)
    {
        m_polling.step();
        double const sine = in.X() * out.Y() - out.X() * in.Y();
        double const cosine = in.X() * out.X() + in.Y() * out.Y();
        if (sine * m_distance >= 0)
            // Where the outline turns back on itself the sine's sign means nothing.
            addArc(corner, in, out, std::copysign(std::atan2(sine, cosine), m_distance));
        else
            addInner(corner, in, out);
    }

private:
    static double square(double x) { return x * x; }
    static double relativeTolerance(double distance)
    {
        return arcTolerance / std::max(std::abs(distance), 1.0);
    }

    void addArc(Point const& corner, Vector const& in, Vector const& out, double angle)
    {
        int const steps = std::max(int(std::round(m_stepsPerRadian * std::abs(angle))), 1);
        for (int i = 0; i < steps; ++i) {
            m_polling.step();
            double const turn = angle * i / steps;
            double const c = std::cos(turn), s = std::sin(turn);
            m_curve.push_back(
                moved(corner, {in.X() * c - in.Y() * s, in.X() * s + in.Y() * c}, m_distance));
        }
        m_curve.push_back(moved(corner, out, m_distance));
    }

    void addInner(Point const& corner, Vector const& in, Vector const& out)
    {
        m_curve.push_back(moved(corner, in, m_distance));
        if (m_inner == InnerJoin::ThroughCorner)
            m_curve.push_back(corner);
        m_curve.push_back(moved(corner, out, m_distance));
    }

    Curve& m_curve;
    double m_distance;
    InnerJoin m_inner;
    double m_stepsPerRadian;
    double m_straightCosine;
    PollSteps m_polling;
};

}  // namespace

Curve offsetCurve(Curve const& outline, double distance, InnerJoin inner, WorkPoll const& poll)
{
    Curve const points = withoutRepeats(outline);
    Curve curve;
    if (points.size() < 3)
        return curve;
    curve.reserve(points.size() + points.size() / 2);
    CornerJoins joins(curve, distance, inner, poll);
    Vector in = normalOf(points.back(), points.front());
    for (std::size_t i = 0; i < points.size(); ++i) {
        Vector const out = normalOf(points[i], points[i + 1 < points.size() ? i + 1 : 0]);
        joins.add(points[i], in, out);
        in = out;
    }
    return curve;
}

Curve offsetCurve(SidesWithArcs const& outline, double distance, WorkPoll const& poll)
{
    Curve curve;
    curve.reserve(outline.size() + outline.size() / 2);
    CornerJoins joins(curve, distance, InnerJoin::Short, poll);
    for (std::size_t i = 0; i < outline.size(); ++i) {
        SideOrArc const &before = outline[i > 0 ? i - 1 : outline.size() - 1], &side = outline[i];
        Point const &corner = side.start, &next = outline[i + 1 < outline.size() ? i + 1 : 0].start;
        Vector const in = normalAt(corner, before.start, corner, before.centre, distance);
        Vector const out = normalAt(corner, corner, next, side.centre, distance);
        if (before.centre || side.centre)
            joins.addBetweenImages(corner, in, out);
        else
            joins.add(corner, in, out);
    }
    return curve;
}

}  // namespace Freecut
