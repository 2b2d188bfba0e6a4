// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawings/PathBuilder.h"

#include "platform/jobs/Exceptions.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Drawings {

namespace {

/// How far a chord may be from its curve; half of what is promised.
constexpr double tolerance = 0.005;
/// Ends that coincide but for how a file rounds them.
constexpr double sameEnd = 1e-3;
/// Neighbours that are nearer than the grid of outlines are one.
constexpr double samePoint = 1e-4;
/// Beyond that nobody draws.
constexpr double farthest = 1e6;

}  // namespace

double distance(Point const& p, Point const& q)
{
    return std::hypot(p.X() - q.X(), p.Y() - q.Y());
}

void refuse(QString const& sentence)
{
    throw Mell::Exception(sentence.toStdString());
}

QString tooManyPoints()
{
    return QCoreApplication::translate(
        "Drawings", "A path has more than 20,000 points. Simplify it, or draw it smaller.");
}

void PathBuilder::add(Point const& p)
{
    if (!(std::abs(p.X()) <= farthest && std::abs(p.Y()) <= farthest))
        refuse(QCoreApplication::translate(
            "Drawings", "The drawing is larger than a kilometre. Choose another unit."));
    if (m_points.size() > mostPoints)
        refuse(tooManyPoints());
    if (m_points.empty() || distance(m_points.back(), p) > samePoint)
        m_points.push_back(p);
}

void PathBuilder::moveTo(Point const& p)
{
    end();
    add(p);
}

void PathBuilder::lineTo(Point const& p)
{
    add(p);
}

// The bound on the chords of a curve in equal steps is that of Wang: see G. Farin, "Curves and
// Surfaces for CAGD".
void PathBuilder::cubicTo(Point const& b, Point const& c, Point const& d)
{
    Point const a = m_points.empty() ? b : m_points.back();
    auto const bend = [](Point const& p, Point const& q, Point const& r) {
        return std::hypot(p.X() - 2 * q.X() + r.X(), p.Y() - 2 * q.Y() + r.Y());
    };
    double const wanted =
        std::ceil(std::sqrt(0.75 * std::max(bend(a, b, c), bend(b, c, d)) / tolerance));
    // More are refused as they are added.
    int const steps = int(std::clamp(wanted, 1.0, double(mostPoints) + 2));
    for (int i = 1; i <= steps; ++i) {
        double const t = double(i) / steps, s = 1 - t;
        double const wa = s * s * s, wb = 3 * s * s * t, wc = 3 * s * t * t, wd = t * t * t;
        add(i == steps ? d
                       : Point(wa * a.X() + wb * b.X() + wc * c.X() + wd * d.X(),
                               wa * a.Y() + wb * b.Y() + wc * c.Y() + wd * d.Y()));
    }
}

void PathBuilder::arcTo(Point const& middle, Point const& u, Point const& v, double from,
                        double sweep)
{
    double const uu = u.X() * u.X() + u.Y() * u.Y(), vv = v.X() * v.X() + v.Y() * v.Y();
    double const uv = u.X() * v.X() + u.Y() * v.Y();
    double const radius = std::sqrt((uu + vv + std::hypot(uu - vv, 2 * uv)) / 2);
    if (!(radius > 0) || !std::isfinite(radius))
        return;
    double const step = 2 * std::acos(std::clamp(1 - tolerance / radius, -1.0, 1.0));
    double const wanted = std::ceil(std::abs(sweep) / std::max(step, 1e-9));
    int const steps = int(std::clamp(wanted, 4.0, double(mostPoints) + 2));
    for (int i = 1; i <= steps; ++i) {
        double const t = from + sweep * i / steps;
        add({middle.X() + u.X() * std::cos(t) + v.X() * std::sin(t),
             middle.Y() + u.Y() * std::cos(t) + v.Y() * std::sin(t)});
    }
}

void PathBuilder::divide(std::function<Point(double)> const& curve, double from, double to,
                         Point const& start, Point const& stop, int depth)
{
    constexpr int deepest = 12;
    bool isFlat = true;
    for (double const share : {0.25, 0.5, 0.75}) {
        Point const on = curve(from + (to - from) * share);
        Point const chord(start.X() + (stop.X() - start.X()) * share,
                          start.Y() + (stop.Y() - start.Y()) * share);
        isFlat = isFlat && distance(on, chord) <= tolerance / 2;
    }
    if (isFlat || depth >= deepest) {
        add(stop);
        return;
    }
    double const half = (from + to) / 2;
    Point const middle = curve(half);
    divide(curve, from, half, start, middle, depth + 1);
    divide(curve, half, to, middle, stop, depth + 1);
}

void PathBuilder::curveTo(std::function<Point(double)> const& curve, int pieces)
{
    for (int i = 0; i < pieces; ++i) {
        double const from = double(i) / pieces, to = double(i + 1) / pieces;
        divide(curve, from, to, curve(from), curve(to), 0);
    }
}

void PathBuilder::close()
{
    if (!m_points.empty())
        m_points.push_back(m_points.front());
    end();
}

void PathBuilder::end()
{
    Path path;
    path.points = std::exchange(m_points, {});
    if (path.points.size() < 2)
        return;
    path.isClosed =
        path.points.size() > 2 && distance(path.points.front(), path.points.back()) <= sameEnd;
    if (path.isClosed)
        path.points.pop_back();
    m_paths.push_back(std::move(path));
}

std::vector<Path> PathBuilder::take()
{
    end();
    return std::exchange(m_paths, {});
}

}  // namespace Drawings
