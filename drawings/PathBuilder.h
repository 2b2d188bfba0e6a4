// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drawings/Drawing.h"

#include <functional>

namespace Drawings {

/// Collects paths from lines and curves, which it divides. Everything is in millimetres.
class PathBuilder
{
public:
    void moveTo(Point const& p);
    void lineTo(Point const& p);
    void cubicTo(Point const& b, Point const& c, Point const& d);
    /// Points middle + u cos t + v sin t, t going from `from` over `sweep` radians. The first one is
    /// taken to be where the path stands.
    void arcTo(Point const& middle, Point const& u, Point const& v, double from, double sweep);
    /// Any curve from 0 to 1, divided until the middles of its chords lie on it.
    void curveTo(std::function<Point(double)> const& curve, int pieces);
    void close();

    /// Ends the path under way. A path whose ends coincide is closed.
    void end();
    std::vector<Path> const& paths() const { return m_paths; }
    std::vector<Path> take();
    bool isEmpty() const { return m_points.empty(); }

private:
    void add(Point const& p);
    void divide(std::function<Point(double)> const& curve, double from, double to,
                Point const& start, Point const& stop, int depth);

    std::vector<Point> m_points;
    std::vector<Path> m_paths;
};

double distance(Point const& p, Point const& q);
[[noreturn]] void refuse(QString const& sentence);
QString tooManyPoints();

}  // namespace Drawings
