// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/SegmentRelation.h"

#include <cmath>

namespace Freecut {

namespace {

using Point = UPoint2<float>;

int signOf(double value, double tolerance)
{
    if (std::abs(value) <= tolerance)
        return 0;
    return value > 0 ? 1 : -1;
}

struct Touches
{
    Point& p1;
    Point& p2;
    int code = 0;

    void add(Point const& point, int change)
    {
        (code == 0 ? p1 : p2) = point;
        code += change;
    }
};

}  // namespace

double turnOf(Point const& p, Point const& q, Point const& r)
{
    return (double(q.X()) - p.X()) * (double(r.Y()) - p.Y()) -
           (double(q.Y()) - p.Y()) * (double(r.X()) - p.X());
}

bool liesBetween(Point const& r, Point const& p, Point const& q, double tolerance)
{
    return signOf((double(p.X()) - r.X()) * (double(q.X()) - r.X()) +
                      (double(p.Y()) - r.Y()) * (double(q.Y()) - r.Y()),
                  tolerance) < 1;
}

int segmentRelation(Point const& a, Point const& b, Point const& c, Point const& d, Point& p1,
                    Point& p2, double tolerance)
{
    if (a == c || a == d || b == c || b == d)
        return 0;
    double const s1 = turnOf(a, b, c);
    double const s2 = turnOf(a, b, d);
    int const d1 = signOf(s1, tolerance);
    int const d2 = signOf(s2, tolerance);
    int const d3 = signOf(turnOf(c, d, a), tolerance);
    int const d4 = signOf(turnOf(c, d, b), tolerance);
    if (d1 * d2 < 0 && d3 * d4 < 0) {
        p1 = {float((c.X() * s2 - d.X() * s1) / (s2 - s1)),
              float((c.Y() * s2 - d.Y() * s1) / (s2 - s1))};
        return p1 != a && p1 != b && p1 != c && p1 != d ? 1 : 0;
    }
    Touches touches{p1, p2};
    if (d1 == 0 && liesBetween(c, a, b, tolerance))
        touches.add(c, -1);
    if (d2 == 0 && liesBetween(d, a, b, tolerance))
        touches.add(d, -3);
    if (d3 == 0 && liesBetween(a, c, d, tolerance))
        touches.add(a, -5);
    if (d4 == 0 && liesBetween(b, c, d, tolerance))
        touches.add(b, -9);
    return touches.code;
}

}  // namespace Freecut
