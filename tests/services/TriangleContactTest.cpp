// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/TriangleContact.h"
#include "tests/services/WholePoint.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <set>
#include <vector>

namespace {

TriangleCorners cornersOf(WholeTriangle const& t)
{
    return {t[0], t[1], t[2]};
}

/// Where a point in the plane of a triangle lies in it; nothing for one outside.
std::optional<TrianglePlace> placeIn(WholeTriangle const& t, FractionPoint const& p)
{
    WholePoint const normal = normalOf(t);
    std::vector<int> on;
    for (int k = 0; k < 3; ++k) {
        WholePoint const& from = t[std::size_t(k)];
        WholePoint const& to = t[std::size_t((k + 1) % 3)];
        std::int64_t const side =
            dot(normal, cross(to - from, p.numerators - p.denominator * from));
        if (side < 0)
            return {};
        if (side == 0)
            on.push_back(k);
    }
    if (on.empty())
        return TrianglePlace::face();
    if (on.size() == 1)
        return TrianglePlace::edge(on[0]);
    // The corner at which both edges end: 0 and 1 in corner 1, 1 and 2 in 2, 0 and 2 in 0.
    return TrianglePlace::corner(on[0] == 0 && on[1] == 2 ? 0 : on[1]);
}

bool isInPlane(WholeTriangle const& t, WholeTriangle const& plane)
{
    return std::all_of(t.begin(), t.end(), [&](WholePoint const& p) {
        return dot(normalOf(plane), p - plane[0]) == 0;
    });
}

/// The points in which edges of one triangle pass through the other or end on it.
void addPassages(WholeTriangle const& t, WholeTriangle const& other,
                 std::vector<FractionPoint>& points)
{
    for (std::size_t k = 0; k < 3; ++k) {
        WholePoint const &p = t[k], &q = t[(k + 1) % 3];
        int const atP = signOf(dot(normalOf(other), p - other[0]));
        int const atQ = signOf(dot(normalOf(other), q - other[0]));
        if (atP == atQ)
            continue;
        FractionPoint const point = passage(p, q, other);
        if (placeIn(other, point))
            points.push_back(point);
    }
}

/// The ends of what two triangles in different planes have in common, along the cross product of
/// their normals: none, one point or two. The common part is convex, and where it ends, an edge of
/// one triangle ends on the other or passes through it.
std::vector<FractionPoint> commonEnds(WholeTriangle const& first, WholeTriangle const& second)
{
    std::vector<FractionPoint> points;
    addPassages(first, second, points);
    addPassages(second, first, points);
    WholePoint const direction = cross(normalOf(first), normalOf(second));
    auto const isBefore = [&](FractionPoint const& p, FractionPoint const& q) {
        return dot(direction, p.numerators) * q.denominator <
               dot(direction, q.numerators) * p.denominator;
    };
    std::sort(points.begin(), points.end(), isBefore);
    if (points.empty())
        return {};
    if (points.front() == points.back())
        return {points.front()};
    return {points.front(), points.back()};
}

std::string textOf(WholeTriangle const& first, WholeTriangle const& second)
{
    std::string text;
    for (WholeTriangle const* t : {&first, &second})
        for (WholePoint const& p : *t)
            text += '(' + std::to_string(p[0]) + ' ' + std::to_string(p[1]) + ' ' +
                    std::to_string(p[2]) + ") ";
    return text;
}

int codeOf(TrianglePlace place)
{
    return place.isFace() ? 6 : place.isEdge() ? 3 + place.index() : place.index();
}

/// Whether an edge has its ends on different sides of a plane.
bool doesCross(WholeTriangle const& t, TrianglePlace edge, WholeTriangle const& plane)
{
    if (!edge.isEdge())
        return false;
    WholePoint const n = normalOf(plane);
    std::size_t const k = std::size_t(edge.index());
    return dot(n, t[k] - plane[0]) * dot(n, t[(k + 1) % 3] - plane[0]) < 0;
}

/// Affine maps of whole numbers with a determinant of 1, not small: they move and shear.
struct Shear
{
    std::array<WholePoint, 3> rows;
    WholePoint offset;

    explicit Shear(std::mt19937& random)
    {
        std::uniform_int_distribution<int> number(-300, 300);
        std::int64_t const a = number(random), b = number(random), c = number(random);
        // x and y are sheared along each other, then z along y.
        rows[0].at = {1, b, 0};
        rows[1].at = {a, a * b + 1, 0};
        rows[2].at = {0, c, 1};
        offset = randomPoint(random, -5000, 5000);
    }
    WholePoint operator()(WholePoint const& p) const
    {
        return WholePoint{{dot(rows[0], p), dot(rows[1], p), dot(rows[2], p)}} + offset;
    }
    WholeTriangle operator()(WholeTriangle const& t) const
    {
        return {(*this)(t[0]), (*this)(t[1]), (*this)(t[2])};
    }
};

void expectSame(TriangleContact const& a, TriangleContact const& b)
{
    EXPECT_EQ(a.isCoplanar, b.isCoplanar);
    ASSERT_EQ(a.count, b.count);
    for (std::size_t i = 0; i < std::size_t(a.count); ++i) {
        EXPECT_EQ(a.points[i].inFirst, b.points[i].inFirst);
        EXPECT_EQ(a.points[i].inSecond, b.points[i].inSecond);
    }
}

void expectEnds(WholeTriangle const& first, WholeTriangle const& second,
                std::vector<FractionPoint> const& ends, TriangleContact const& contact)
{
    ASSERT_EQ(contact.count, int(ends.size()));
    for (std::size_t i = 0; i < ends.size(); ++i) {
        EXPECT_EQ(contact.points[i].inFirst, placeIn(first, ends[i]));
        EXPECT_EQ(contact.points[i].inSecond, placeIn(second, ends[i]));
    }
}

constexpr int pairs = 200000;

}  // namespace

TEST(TriangleContact, EndsAndPlacesAreThoseOfExactArithmetic)
{
    std::mt19937 random(1);
    // By count: all pairs of places in which common parts begin.
    std::set<int> seen[3];
    for (int i = 0; i < pairs && !HasFailure(); ++i) {
        WholeTriangle const first = randomTriangle(random, -2, 2);
        WholeTriangle const second = randomTriangle(random, -2, 2);
        if (isInPlane(first, second))
            continue;
        SCOPED_TRACE(textOf(first, second));
        TriangleContact const contact = contactOf(cornersOf(first), cornersOf(second));
        EXPECT_FALSE(contact.isCoplanar);
        expectEnds(first, second, commonEnds(first, second), contact);
        if (contact.count > 0)
            seen[contact.count].insert(7 * codeOf(contact.points[0].inFirst) +
                                       codeOf(contact.points[0].inSecond));
    }
    // A single point is a corner of one triangle or on an edge of both; an end of a segment is on
    // the border of one of them.
    EXPECT_EQ(seen[1].size(), 42u);
    EXPECT_EQ(seen[2].size(), 48u);
}

TEST(TriangleContact, TrianglesInOnePlaneAreCoplanarAndHaveNothingInCommon)
{
    std::mt19937 random(2);
    for (int i = 0; i < 20000 && !HasFailure(); ++i) {
        WholeTriangle flat[2] = {randomTriangle(random, -2, 2), randomTriangle(random, -2, 2)};
        for (WholeTriangle& t : flat)
            for (WholePoint& p : t)
                p.at[2] = 2 * p[0] - p[1] + 1;
        if (!hasArea(flat[0]) || !hasArea(flat[1]))
            continue;
        SCOPED_TRACE(textOf(flat[0], flat[1]));
        TriangleContact const contact = contactOf(cornersOf(flat[0]), cornersOf(flat[1]));
        EXPECT_TRUE(contact.isCoplanar);
        EXPECT_EQ(contact.count, 0);
    }
}

TEST(TriangleContact, PointsAwayFromCornersNameAnEdgeThatCrossesThePlane)
{
    std::mt19937 random(3);
    int asked = 0;
    for (int i = 0; i < pairs && !HasFailure(); ++i) {
        WholeTriangle const first = randomTriangle(random, -2, 2);
        WholeTriangle const second = randomTriangle(random, -2, 2);
        TriangleContact const contact = contactOf(cornersOf(first), cornersOf(second));
        SCOPED_TRACE(textOf(first, second));
        for (std::size_t k = 0; k < std::size_t(contact.count); ++k) {
            TriangleContact::Point const& point = contact.points[k];
            if (point.inFirst.isCorner() || point.inSecond.isCorner())
                continue;
            ++asked;
            EXPECT_TRUE(point.isEdgeOfFirst ? doesCross(first, point.inFirst, second)
                                            : doesCross(second, point.inSecond, first));
        }
    }
    EXPECT_GT(asked, pairs / 20);
}

TEST(TriangleContact, SwappingTheTrianglesTurnsTheSegmentRound)
{
    std::mt19937 random(4);
    for (int i = 0; i < pairs && !HasFailure(); ++i) {
        WholeTriangle const first = randomTriangle(random, -2, 2);
        WholeTriangle const second = randomTriangle(random, -2, 2);
        SCOPED_TRACE(textOf(first, second));
        TriangleContact const contact = contactOf(cornersOf(first), cornersOf(second));
        TriangleContact turned = contactOf(cornersOf(second), cornersOf(first));
        if (turned.count == 2)
            std::swap(turned.points[0], turned.points[1]);
        for (TriangleContact::Point& p : turned.points)
            std::swap(p.inFirst, p.inSecond);
        expectSame(contact, turned);
    }
}

TEST(TriangleContact, ShearsChangeNothing)
{
    // Sheared, the triangles are slivers, whose signs rounding would get wrong.
    std::mt19937 random(5);
    for (int i = 0; i < pairs && !HasFailure(); ++i) {
        WholeTriangle const first = randomTriangle(random, -2, 2);
        WholeTriangle const second = randomTriangle(random, -2, 2);
        Shear const shear(random);
        SCOPED_TRACE(textOf(shear(first), shear(second)));
        expectSame(contactOf(cornersOf(first), cornersOf(second)),
                   contactOf(cornersOf(shear(first)), cornersOf(shear(second))));
    }
}
