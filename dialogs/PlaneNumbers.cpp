// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/PlaneNumbers.h"

#include "selection/LineRotation.h"
#include "tools/PlaneProperty.h"
#include "tools/SceneBox.h"

#include <QVector3D>

#include <algorithm>
#include <cmath>

namespace Freecut {

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<float>;

UPoint3<double> inDouble(Point const& p)
{
    return {p.X(), p.Y(), p.Z()};
}

/// Of any length.
UVector3<double> wideNormalOf(PlaneCorners const& plane)
{
    return (inDouble(plane.c1) - inDouble(plane.c0)) * (inDouble(plane.c2) - inDouble(plane.c1));
}

Point turned(Point const& point, double const matrix[4][4])
{
    UPoint3<double> const p = timesRowMatrix(inDouble(point), matrix);
    return {float(p.X()), float(p.Y()), float(p.Z())};
}

/// Whole steps, also for a plane that is absurdly far away.
int wholeSteps(double steps)
{
    constexpr double most = 1e9;
    return int(std::min(steps, most));
}

}  // namespace

PlaneCorners PlaneNumbers::cornersOf(PlaneProperty const& plane)
{
    std::vector<Point> const corners = plane.getCorners();
    return {corners[0], corners[1], corners[2]};
}

UPoint3<float> PlaneNumbers::centerOf(PlaneCorners const& plane)
{
    return (plane.c0 + plane.c2) * 0.5f;
}

UVector3<float> PlaneNumbers::normalOf(PlaneCorners const& plane)
{
    UVector3<double> const n = wideNormalOf(plane).Normalize();
    return {float(n.X()), float(n.Y()), float(n.Z())};
}

PlaneCorners PlaneNumbers::movedBy(PlaneCorners const& plane, UVector3<float> const& way)
{
    return {plane.c0 + way, plane.c1 + way, plane.c2 + way};
}

PlaneCorners PlaneNumbers::turnedTo(PlaneCorners const& plane, UVector3<float> const& normal)
{
    UVector3<double> const from = wideNormalOf(plane).Normalize();
    UVector3<double> const to(normal.X(), normal.Y(), normal.Z());
    UVector3<double> axis = from * to;
    double const angle = std::acos(std::clamp(from | to, -1.0, 1.0));
    if (axis.Normalize() == UVector3<double>()) {
        if (angle < M_PI / 2)
            return plane;
        // To the opposite side there are many shortest ways; this one goes about the first side.
        axis = inDouble(plane.c1) - inDouble(plane.c0);
        axis.Normalize();
    }
    Point const center = centerOf(plane);
    double matrix[4][4];
    rotateArbitraryLine(matrix, inDouble(center), inDouble(center) + axis, angle);
    Point const c0 = turned(plane.c0, matrix);
    return {c0, turned(plane.c1, matrix), center * 2 - (c0 - Point())};
}

PlaneCorners PlaneNumbers::resizedTo(PlaneCorners const& plane, float first, float second)
{
    Vector a = plane.c1 - plane.c0, b = plane.c2 - plane.c1;
    a = a.Normalize() * (first * 0.5f);
    b = b.Normalize() * (second * 0.5f);
    Point const center = centerOf(plane);
    return {center - a - b, center + a - b, center + a + b};
}

bool PlaneNumbers::areOnOneSide(UPoint3<float> const& a, UPoint3<float> const& b,
                                UPoint3<float> const& point, UVector3<float> const& normal)
{
    return ((b - point) | normal) * ((a - point) | normal) > 0;
}

QVector4D PlaneNumbers::planeThrough(UPoint3<float> const& point, UVector3<float> const& normal)
{
    return {normal.X(), normal.Y(), normal.Z(), -(normal | (point - Point()))};
}

float PlaneNumbers::distancePt2Plane(UPoint3<float> const& point, QVector4D const& plane)
{
    float const length = plane.toVector3D().length();
    return std::fabs(plane.x() * point.X() + plane.y() * point.Y() + plane.z() * point.Z() +
                     plane.w()) /
           length;
}

void PlaneTravel::measure(UBox3<float> const& box, UPoint3<float> const& center,
                          UVector3<float> const& normal)
{
    m_plus = m_minus = 0;
    QVector4D const plane = PlaneNumbers::planeThrough(center, normal);
    std::vector<Point> const corners = cornersOf(box);
    // Where all corners lie on one side, as with a plane on the top of a part, the ends of the
    // travel are still those of the box.
    auto const [lowest, highest] = std::ranges::minmax_element(
        corners, {}, [&](Point const& corner) { return (corner - center) | normal; });
    m_farPlus = *highest;
    m_farMinus = *lowest;
    for (Point const& corner : corners) {
        bool const isPlus = ((corner - center) | normal) > 0;
        float& largest = isPlus ? m_plus : m_minus;
        float const depth = PlaneNumbers::distancePt2Plane(corner, plane);
        if (depth > largest) {
            largest = depth;
            (isPlus ? m_farPlus : m_farMinus) = corner;
        }
    }
}

int PlaneTravel::stepCount(float stepSize) const
{
    return wholeSteps((m_plus + m_minus) / stepSize + 2.0);
}

int PlaneTravel::stepOf(QVector4D const& plane, float stepSize) const
{
    float const depth = PlaneNumbers::distancePt2Plane(m_farMinus, plane);
    // A plane without area has no normal and stands nowhere.
    return std::isfinite(depth) ? wholeSteps(depth / stepSize + 1.0) : 0;
}

}  // namespace Freecut
