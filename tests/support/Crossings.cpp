// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Crossings.h"

#include "tests/support/ExactSide.h"
#include "tests/support/TriangleBoxes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace judge {
namespace {

using Corners = std::array<UPoint3<float>, 3>;
using Signs = std::array<int, 3>;

Corners cornersOf(Soup const& soup, std::uint32_t triangle)
{
    auto const& t = soup.triangles[triangle];
    return {soup.points[t[0]], soup.points[t[1]], soup.points[t[2]]};
}

Signs sidesOf(Corners const& t, Corners const& corners)
{
    return {sideOf(t[0], t[1], t[2], corners[0]), sideOf(t[0], t[1], t[2], corners[1]),
            sideOf(t[0], t[1], t[2], corners[2])};
}

bool areOnBothSides(Signs const& signs)
{
    auto const [least, most] = std::minmax_element(signs.begin(), signs.end());
    return *least < 0 && *most > 0;
}

/// A triangle and on which sides of the other one's plane its corners lie.
struct SidedTriangle
{
    Corners corners;
    Signs signs;
};

/// Turns the corners so that the first one is alone on its side of the other's plane, and the other
/// round so that this is the upper side.
void bringLoneCornerFirst(SidedTriangle& triangle, SidedTriangle& other)
{
    auto& [corners, signs] = triangle;
    // Two on one side: the lone one is on the other. One on each and one between: either will do.
    int const lone = signs[0] + signs[1] + signs[2] > 0 ? -1 : 1;
    auto const first = std::find(signs.begin(), signs.end(), lone) - signs.begin();
    std::rotate(corners.begin(), corners.begin() + first, corners.end());
    std::rotate(signs.begin(), signs.begin() + first, signs.end());
    if (lone < 0) {
        std::swap(other.corners[1], other.corners[2]);
        std::swap(other.signs[1], other.signs[2]);
    }
}

/// Whether the stretches in which two triangles meet the line of both planes overlap (after Guigue
/// and Devillers, 2003).
bool doCross(SidedTriangle a, SidedTriangle b)
{
    bringLoneCornerFirst(a, b);
    bringLoneCornerFirst(b, a);
    auto const& p = a.corners;
    auto const& q = b.corners;
    return sideOf(p[0], p[1], q[0], q[1]) < 0 && sideOf(p[0], p[2], q[2], q[0]) < 0;
}

/// Of two triangles in one plane: an edge of one of them parts their insides, or nothing does.
bool doOverlap(Corners a, Corners b)
{
    int axis = 0;
    while (turnOf(a[0], a[1], a[2], axis) == 0)
        ++axis;
    for (Corners* const t : {&a, &b})
        if (turnOf((*t)[0], (*t)[1], (*t)[2], axis) < 0)
            std::swap((*t)[1], (*t)[2]);
    auto const isPartedByEdgeOf = [axis](Corners const& t, Corners const& other) {
        for (std::size_t i = 0; i < 3; ++i)
            if (std::all_of(other.begin(), other.end(), [&](auto const& p) {
                    return turnOf(t[i], t[(i + 1) % 3], p, axis) <= 0;
                }))
                return true;
        return false;
    };
    return !isPartedByEdgeOf(a, b) && !isPartedByEdgeOf(b, a);
}

using Vector = UVector3<double>;

/// By how much the shadows of two triangles on an axis overlap; nothing for no axis.
double overlapAlong(Vector axis, std::array<Vector, 3> const& a, std::array<Vector, 3> const& b)
{
    double const length = axis.GetLength();
    if (length == 0)
        return std::numeric_limits<double>::infinity();
    axis = axis * (1 / length);
    auto const shadowOf = [&axis](std::array<Vector, 3> const& t) {
        return std::minmax({axis | t[0], axis | t[1], axis | t[2]});
    };
    auto const [lowA, highA] = shadowOf(a);
    auto const [lowB, highB] = shadowOf(b);
    return std::max(0.0, std::min(highA - lowB, highB - lowA));
}

/// The least move of one triangle that takes it out of the other. The vectors between points of
/// the two fill a polyhedron, whose faces are parallel to one of the triangles or to an edge of
/// each: the move leads to the nearest.
double depthOf(Corners const& a, Corners const& b)
{
    std::array<std::array<Vector, 3>, 2> corners, edges;
    for (std::size_t i = 0; i < 3; ++i)
        for (int k = 0; k < 3; ++k) {
            corners[0][i][k] = double(a[i][k]) - a[0][k];
            corners[1][i][k] = double(b[i][k]) - a[0][k];
        }
    for (std::size_t t = 0; t < 2; ++t)
        for (std::size_t i = 0; i < 3; ++i)
            edges[t][i] = corners[t][(i + 1) % 3] - corners[t][i];
    double least = std::numeric_limits<double>::infinity();
    for (auto const& e : edges)
        least = std::min(least, overlapAlong(e[0] * e[1], corners[0], corners[1]));
    for (Vector const& e : edges[0])
        for (Vector const& f : edges[1])
            least = std::min(least, overlapAlong(e * f, corners[0], corners[1]));
    return least;
}

double unitOf(Corners const& a, Corners const& b)
{
    float size = 0;
    for (Corners const* t : {&a, &b})
        for (auto const& p : *t)
            for (int k = 0; k < 3; ++k)
                size = std::max(size, std::fabs(p[k]));
    return double(std::nextafter(size, std::numeric_limits<float>::infinity())) - double(size);
}

enum class Meeting
{
    None,
    Crossing,
    Overlap
};

Meeting meetingOf(Corners const& a, Corners const& b)
{
    Signs const sidesOfB = sidesOf(a, b);
    if (sidesOfB == Signs{0, 0, 0})
        return doOverlap(a, b) ? Meeting::Overlap : Meeting::None;
    if (!areOnBothSides(sidesOfB))
        return Meeting::None;
    Signs const sidesOfA = sidesOf(b, a);
    if (!areOnBothSides(sidesOfA))
        return Meeting::None;
    return doCross({a, sidesOfA}, {b, sidesOfB}) ? Meeting::Crossing : Meeting::None;
}

}  // namespace

void Crossings::add(bool isOverlap, double units, UPoint3<float> const& corner)
{
    if (total() == 0 || units > mostUnits) {
        mostUnits = units;
        place = corner;
    }
    ++(isOverlap ? overlaps : pairs);
}

Crossings crossingsOf(Soup const& soup)
{
    TriangleBoxes const tree(soup);
    Crossings found;
    auto const isFlat = [&](std::uint32_t triangle) {
        Corners const c = cornersOf(soup, triangle);
        return areInLine(c[0], c[1], c[2]);
    };
    for (std::uint32_t i = 0; i < soup.triangles.size(); ++i) {
        if (isFlat(i))
            continue;
        Corners const corners = cornersOf(soup, i);
        UBox3<float> const box = tree.boxOf(i);
        tree.search([&](UBox3<float> const& other) { return doMeet(box, other); },
                    [&](std::uint32_t k) {
                        if (k <= i || isFlat(k))
                            return;
                        Corners const others = cornersOf(soup, k);
                        Meeting const meeting = meetingOf(corners, others);
                        if (meeting != Meeting::None)
                            found.add(meeting == Meeting::Overlap,
                                      depthOf(corners, others) / unitOf(corners, others),
                                      corners[0]);
                    });
    }
    return found;
}

}  // namespace judge
