// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/PlaneDrag.h"

#include "selection/LineRotation.h"
#include "tools/SceneBox.h"

#include <algorithm>
#include <cmath>

namespace Freecut {

namespace {

using Point = UPoint3<double>;
using Vector = UVector3<double>;

Point inDouble(UPoint3<float> const& p)
{
    return {p.X(), p.Y(), p.Z()};
}

Vector inDouble(UVector3<float> const& v)
{
    return {v.X(), v.Y(), v.Z()};
}

UPoint3<float> inFloat(Point const& p)
{
    return {float(p.X()), float(p.Y()), float(p.Z())};
}

/// A plane in double.
struct Corners
{
    explicit Corners(PlaneCorners const& plane)
        : c0(inDouble(plane.c0)), c1(inDouble(plane.c1)), c2(inDouble(plane.c2))
    {}

    Point center() const { return (c0 + c2) * 0.5; }
    PlaneCorners narrowed() const { return {inFloat(c0), inFloat(c1), inFloat(c2)}; }

    Point c0;
    Point c1;
    Point c2;
};

/// A turn about a line through the centre, by which a radius follows the mouse.
class Turn
{
public:
    /// axis    a unit vector
    /// radius  from the centre to what is dragged
    Turn(Point const& center, Vector const& axis, Vector radius, Vector const& delta)
    {
        target = delta + radius;
        target = target - axis * (target | axis);
        target.Normalize();
        radius.Normalize();
        double const angle = std::acos(std::clamp(target | radius, -1.0, 1.0));
        bool const isBackward = (delta | (axis * radius)) < 0;
        rotateArbitraryLine(m_matrix, center, center + axis, isBackward ? -angle : angle);
    }

    Point operator()(Point const& point) const { return timesRowMatrix(point, m_matrix); }

    /// Unit vector from the centre to where the radius points now.
    Vector target;

private:
    double m_matrix[4][4];
};

/// What a corner lies opposite to.
Point opposite(Point const& corner, Point const& center)
{
    return center + (center - corner);
}

PlaneCorners moved(Corners plane, Vector const& delta)
{
    plane.c0 += delta;
    plane.c1 += delta;
    plane.c2 += delta;
    return plane.narrowed();
}

PlaneCorners turnedInItself(Corners plane, int handle, Vector const& delta)
{
    Point const center = plane.center();
    Vector const r1 = plane.c0 - center, r2 = plane.c1 - center;
    Vector normal = (plane.c1 - plane.c0) * (plane.c2 - plane.c1);
    // A plane without extent has no side to turn to.
    if (normal.Normalize() == Vector())
        return plane.narrowed();
    Vector const radii[] = {r1, r2, -r1, -r2};
    Vector const radius = radii[handle - PlaneHandle::firstCorner];
    Turn const turn(center, normal, radius, delta);
    // Dragged right into the centre, the corner would not come out of it again.
    if (turn.target == Vector())
        return plane.narrowed();
    Point const q = center + turn.target * radius.GetLength();
    switch (handle) {
        case 1:
            plane.c0 = q;
            plane.c1 = turn(plane.c1);
            break;
        case 2:
            plane.c0 = turn(plane.c0);
            plane.c1 = q;
            break;
        case 3:
            plane.c0 = opposite(q, center);
            plane.c1 = turn(plane.c1);
            break;
        default:
            plane.c0 = turn(plane.c0);
            plane.c1 = opposite(q, center);
            break;
    }
    plane.c2 = handle == 3 ? q : opposite(plane.c0, center);
    return plane.narrowed();
}

PlaneCorners tilted(Corners plane, int handle, Vector const& delta)
{
    Point const center = plane.center();
    Vector const half1 = (plane.c1 - plane.c0) * 0.5, half2 = (plane.c2 - plane.c1) * 0.5;
    bool const isAlongFirst = handle == 5 || handle == 7;
    Vector axis = isAlongFirst ? -half1 : -half2;
    if (axis.Normalize() == Vector())
        return plane.narrowed();
    Vector const radii[] = {-half2, -half1, half2, half1};
    Turn const turn(center, axis, radii[handle - PlaneHandle::firstEdge], delta);
    plane.c0 = turn(plane.c0);
    plane.c1 = turn(plane.c1);
    plane.c2 = opposite(plane.c0, center);
    return plane.narrowed();
}

}  // namespace

PlaneSize sizeOf(PlaneCorners const& plane)
{
    return {(plane.c2 - plane.c1).GetLength(), (plane.c1 - plane.c0).GetLength()};
}

PlaneCorners draggedPlane(PlaneCorners const& plane, int handle, UVector3<float> const& delta)
{
    if (handle == PlaneHandle::center)
        return moved(Corners(plane), inDouble(delta));
    if (handle < PlaneHandle::firstEdge)
        return turnedInItself(Corners(plane), handle, inDouble(delta));
    return tilted(Corners(plane), handle, inDouble(delta));
}

PlaneCorners resizedPlane(PlaneCorners const& plane, int handle, UVector3<float> const& delta)
{
    // Which of the two parts of the way each corner takes, by handle.
    struct Follows
    {
        bool first0, second0, first1, second1, first2, second2;
    };
    static constexpr Follows table[PlaneHandle::count] = {
        {false, false, false, false, false, false},  // centre
        {true, true, false, true, false, false},     // c0
        {false, true, true, true, true, false},      // c1
        {false, false, true, false, true, true},     // c2
        {true, false, false, false, false, true},    // c3
        {false, true, false, true, false, false},    // between c0 and c1
        {true, false, false, false, false, false},   // between c0 and c3
        {false, false, false, false, false, true},   // between c3 and c2
        {false, false, true, false, true, false},    // between c1 and c2
    };
    Corners corners(plane);
    Vector first = corners.c0 - corners.c1, second = corners.c1 - corners.c2;
    first.Normalize();
    second.Normalize();
    first = first * (inDouble(delta) | first);
    second = second * (inDouble(delta) | second);
    Follows const& follows = table[handle];
    auto const way = [&](bool takesFirst, bool takesSecond) {
        return (takesFirst ? first : Vector()) + (takesSecond ? second : Vector());
    };
    corners.c0 += way(follows.first0, follows.second0);
    corners.c1 += way(follows.first1, follows.second1);
    corners.c2 += way(follows.first2, follows.second2);
    return corners.narrowed();
}

bool isValidMove(UBox3<float> const& box, PlaneCorners const& plane)
{
    Corners const corners(plane);
    Point const center = corners.center();
    Vector normal = (corners.c1 - corners.c0) * (corners.c2 - corners.c1);
    normal.Normalize();
    auto const isAbove = [&](UPoint3<float> const& corner) {
        return ((inDouble(corner) - center) | normal) > 0;
    };
    std::vector<UPoint3<float>> const boxCorners = cornersOf(box);
    auto const above = std::ranges::count_if(boxCorners, isAbove);
    return above > 0 && above < 8;
}

}  // namespace Freecut
