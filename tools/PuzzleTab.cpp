// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/PuzzleTab.h"

#include <algorithm>
#include <cmath>

namespace Freecut {

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<float>;

constexpr int leastSteps = 8;
constexpr int mostSteps = 50;

}  // namespace

int PuzzleTab::stepsOfHalfCircle(float radius)
{
    float const halfStep = std::acos(std::min(1.0f, float(0.5 / double(radius))));
    double const steps = std::trunc(2 * M_PI / (2 * double(halfStep))) + 1;
    // Up to half a millimetre the half step is nothing, and the count without bounds.
    return std::isfinite(steps) ? int(std::clamp<double>(steps, leastSteps, mostSteps))
                                : leastSteps;
}

PuzzleTab::PuzzleTab(EdgeFrame const& edge, float width, float height)
    : m_edge(edge),
      m_width(width),
      m_height(height),
      m_radius(height * 0.25f),
      m_steps(stepsOfHalfCircle(m_radius)),
      m_stepTangent(std::tan(float(M_PI / m_steps)))
{}

Vector PuzzleTab::tangent(Vector const& radial, Turn turn) const
{
    Vector along =
        (turn == Turn::Inward) == m_edge.flip ? radial * m_edge.normal : m_edge.normal * radial;
    return along.Normalize();
}

void PuzzleTab::appendArc(std::vector<Point>& points, Point const& middle, Vector radial, int steps,
                          Turn turn) const
{
    for (int i = 0; i < steps; ++i) {
        Point const next =
            middle + radial + tangent(radial, turn) * (radial.GetLength() * m_stepTangent);
        radial = (next - middle).Normalize() * m_radius;
        points.push_back(middle + radial);
    }
}

void PuzzleTab::appendOutline(std::vector<Point>& points, Point const& centre) const
{
    Vector const up = m_edge.perp * m_radius;
    Vector const toSide = m_edge.dir * (m_width * 0.5f - m_radius);
    Point const left = centre - toSide, right = centre + toSide;
    auto const above = [&](Point const& foot, float radii) {
        return foot + m_edge.perp * (radii * m_radius);
    };

    if (left != m_edge.a)
        points.push_back(left);
    appendArc(points, above(left, 1), -up, m_steps - 1, Turn::Inward);
    points.push_back(above(left, 2));
    appendArc(points, above(left, 3), -up, m_steps, Turn::Outward);
    points.push_back(above(right, 4));
    appendArc(points, above(right, 3), up, m_steps - 1, Turn::Outward);
    Point const neck = above(right, 2);
    points.push_back(neck);
    appendArc(points, above(right, 1), up, m_steps, Turn::Inward);
    if (points.back() == neck)
        points.pop_back();
}

Point PuzzleTab::handle(Point const& centre) const
{
    return centre + m_edge.perp * m_height + m_edge.dir * (m_width * 0.5f - m_height * 0.25f);
}

}  // namespace Freecut
