// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/jobs/Exceptions.h"
#include "platform/services/EarcutPolygon.h"
#include "platform/services/POLYGON.h"
#include "tests/support/Soup.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <numbers>
#include <random>
#include <set>

namespace {

using Point = std::array<double, 2>;
using Ring = std::vector<Point>;
using Rings = std::vector<Ring>;

std::vector<Point> pointsOf(Rings const& rings)
{
    std::vector<Point> points;
    for (Ring const& ring : rings)
        points.insert(points.end(), ring.begin(), ring.end());
    return points;
}

double areaOf(Point const& a, Point const& b, Point const& c)
{
    return ((b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0])) / 2;
}

double areaOf(Ring const& ring)
{
    double area = 0;
    for (std::size_t i = 1; i + 1 < ring.size(); ++i)
        area += areaOf(ring[0], ring[i], ring[i + 1]);
    return area;
}

/// The outer ring's area less those of the holes.
double areaOf(Rings const& rings)
{
    double area = 2 * std::abs(areaOf(rings.at(0)));
    for (Ring const& ring : rings)
        area -= std::abs(areaOf(ring));
    return area;
}

Ring reversed(Ring ring)
{
    std::reverse(ring.begin(), ring.end());
    return ring;
}

Ring rectangle(double x0, double y0, double x1, double y1)
{
    return {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}};
}

/// Compares directed edges one by one: those of the triangles, each less its reverse, must be those
/// of the outer ring anticlockwise and of the holes clockwise.
void expectTheRingsAsBorder(Rings const& rings, std::vector<int> const& indices)
{
    std::map<std::pair<int, int>, int> open;
    auto const add = [&](int from, int to, int count) {
        open[{from, to}] += count;
        open[{to, from}] -= count;
    };
    for (std::size_t i = 0; i < indices.size(); i += 3)
        for (std::size_t k = 0; k < 3; ++k)
            add(indices[i + k], indices[i + (k + 1) % 3], 1);
    int first = 0;
    for (std::size_t r = 0; r < rings.size(); ++r) {
        int const size = int(rings[r].size());
        int const direction = (areaOf(rings[r]) < 0) == (r == 0) ? -1 : 1;
        for (int i = 0; i < size; ++i)
            if (size > 1)
                add(first + i, first + (i + 1) % size, -direction);
        first += size;
    }
    for (auto const& [edge, count] : open)
        EXPECT_EQ(count, 0) << edge.first << " -> " << edge.second;
}

struct Filling
{
    std::vector<int> indices;
    /// Of all triangles, and of the number of those without area.
    double area = 0;
    int flat = 0;
};

/// Fills rings that do not cross and checks what must hold for all of them.
Filling filled(Rings const& rings)
{
    Filling filling;
    filling.indices = EarcutPolygon::earcut(rings);
    EXPECT_EQ(filling.indices.size() % 3, 0u);
    std::vector<Point> const points = pointsOf(rings);
    std::set<int> used;
    for (std::size_t i = 0; i < filling.indices.size(); i += 3) {
        int const* const t = &filling.indices[i];
        for (int k = 0; k < 3; ++k) {
            EXPECT_TRUE(t[k] >= 0 && t[k] < int(points.size()));
            EXPECT_NE(t[k], t[(k + 1) % 3]);
            used.insert(t[k]);
        }
        double const area = areaOf(points[t[0]], points[t[1]], points[t[2]]);
        EXPECT_GE(area, 0);
        filling.area += area;
        filling.flat += area == 0;
    }
    EXPECT_EQ(used.size(), points.size());
    EXPECT_NEAR(filling.area, areaOf(rings), 1e-9 * areaOf(rings));
    expectTheRingsAsBorder(rings, filling.indices);
    return filling;
}

/// A closed ring around a centre, without crossings.
Ring star(std::mt19937& random, int corners, double radius, Point const& centre = {0, 0})
{
    std::uniform_real_distribution<double> reach(0.3 * radius, radius);
    Ring ring;
    for (int i = 0; i < corners; ++i) {
        double const angle = 2 * std::numbers::pi * i / corners;
        double const length = reach(random);
        ring.push_back(
            {centre[0] + length * std::cos(angle), centre[1] + length * std::sin(angle)});
    }
    return ring;
}

/// Walls on the rings between two caps.
Soup extruded(Rings const& rings, std::vector<int> const& indices)
{
    Soup soup;
    for (auto const& [x, y] : pointsOf(rings)) {
        soup.add({float(x), float(y), 0});
        soup.add({float(x), float(y), 10});
    }
    std::uint32_t first = 0;
    for (Ring const& ring : rings) {
        auto const size = std::uint32_t(ring.size());
        for (std::uint32_t i = 0; i < size; ++i) {
            std::uint32_t const a = 2 * (first + i), b = 2 * (first + (i + 1) % size);
            soup.add(a + 1, a, b + 1);
            soup.add(b, b + 1, a);
        }
        first += size;
    }
    for (std::size_t i = 0; i < indices.size(); i += 3) {
        std::uint32_t const a = 2 * std::uint32_t(indices[i]);
        std::uint32_t const b = 2 * std::uint32_t(indices[i + 1]);
        std::uint32_t const c = 2 * std::uint32_t(indices[i + 2]);
        soup.add(a, c, b);
        soup.add(a + 1, b + 1, c + 1);
    }
    return soup;
}

}  // namespace

TEST(EarcutPolygon, FillsATriangleWithItself)
{
    Filling const filling = filled({{{0, 0}, {4, 0}, {0, 3}}});
    EXPECT_EQ(filling.indices.size(), 3u);
}

TEST(EarcutPolygon, NeedsTwoTrianglesLessThanPointsAndTwoMoreForEachHole)
{
    Filling const filling =
        filled({rectangle(0, 0, 10, 10), reversed(rectangle(1, 1, 3, 3)), rectangle(5, 5, 8, 8)});
    EXPECT_EQ(filling.indices.size(), 3u * (12 - 2 + 2 * 2));
}

TEST(EarcutPolygon, RunsAnticlockwiseWhateverTheDirectionsOfTheRings)
{
    Ring const outer = rectangle(0, 0, 10, 10);
    Ring const hole = rectangle(2, 3, 6, 7);
    for (Rings const& rings :
         {Rings{outer, hole}, Rings{outer, reversed(hole)}, Rings{reversed(outer), hole},
          Rings{reversed(outer), reversed(hole)}})
        EXPECT_EQ(filled(rings).area, 84);
}

TEST(EarcutPolygon, UsesPointsOnStraightStretches)
{
    Ring ring;
    for (int i = 0; i < 10; ++i)
        ring.push_back({double(i), 0});
    for (int i = 0; i < 10; ++i)
        ring.push_back({10, double(i)});
    ring.push_back({10, 10});
    ring.push_back({0, 10});
    Filling const filling = filled({ring});
    EXPECT_EQ(filling.flat, 0);
    EXPECT_EQ(filling.indices.size(), 3 * (ring.size() - 2));
}

TEST(EarcutPolygon, FillsBesideAHoleThatTouchesTheOuterRingInACorner)
{
    filled({rectangle(0, 0, 10, 10), {{0, 0}, {4, 2}, {2, 4}}});
    filled({rectangle(0, 0, 10, 10), {{0, 0}, {2, 4}, {4, 2}}});
    filled({rectangle(0, 0, 10, 10), {{0, 0}, {10, 10}, {3, 4}}});
}

TEST(EarcutPolygon, FillsBesideAHoleThatTouchesAnEdge)
{
    filled({rectangle(0, 0, 10, 10), {{5, 0}, {7, 3}, {3, 3}}});
    filled({rectangle(0, 0, 10, 10), {{5, 0}, {10, 5}, {5, 10}, {0, 5}}});
    // A corner of the outer ring on an edge of the hole.
    filled({{{0, 0}, {5, 4}, {10, 0}, {10, 10}, {0, 10}}, {{3, 4}, {7, 4}, {5, 8}}});
}

TEST(EarcutPolygon, FillsBetweenHolesThatTouchEachOther)
{
    filled({rectangle(0, 0, 10, 10), rectangle(1, 1, 4, 4), rectangle(4, 4, 7, 7)});
    filled({rectangle(0, 0, 10, 10), rectangle(1, 1, 4, 4), rectangle(4, 4, 7, 7),
            rectangle(1, 4, 4, 6), rectangle(4, 2, 6, 4)});
    // A chain of holes from side to side.
    filled({rectangle(0, 0, 6, 6),
            {{0, 3}, {1, 2}, {2, 3}, {1, 4}},
            {{2, 3}, {3, 2}, {4, 3}, {3, 4}},
            {{4, 3}, {5, 2}, {6, 3}, {5, 4}}});
}

TEST(EarcutPolygon, FillsHolesWithACommonEdge)
{
    filled({rectangle(0, 0, 10, 10), rectangle(1, 1, 4, 4), rectangle(4, 1, 7, 4)});
    filled({rectangle(0, 0, 10, 10), rectangle(1, 1, 4, 4), rectangle(4, 2, 7, 8)});
    filled({rectangle(0, 0, 10, 10), rectangle(0, 2, 3, 5)});
}

TEST(EarcutPolygon, FillsARingThatPassesAPointTwice)
{
    filled({{{0, 0}, {4, 0}, {4, 4}, {8, 4}, {8, 8}, {4, 8}, {4, 4}, {0, 4}}});
    // A bay that closes in a point.
    filled({{{0, 0}, {5, 0}, {3, 3}, {7, 3}, {5, 0}, {10, 0}, {10, 10}, {0, 10}}});
    // Four petals.
    filled({{{0, 0},
             {3, -1},
             {3, 1},
             {0, 0},
             {1, 3},
             {-1, 3},
             {0, 0},
             {-3, 1},
             {-3, -1},
             {0, 0},
             {-1, -3},
             {1, -3}}});
}

TEST(EarcutPolygon, FillsARingThatRepeatsAPlace)
{
    Filling const filling = filled({{{0, 0}, {0, 0}, {4, 0}, {4, 3}, {4, 3}, {4, 3}, {0, 3}}});
    EXPECT_EQ(filling.flat, 3);
}

TEST(EarcutPolygon, FillsARingThatGoesOutAndBack)
{
    filled({{{0, 0}, {10, 0}, {10, 5}, {15, 5}, {10, 5}, {10, 10}, {0, 10}}});
    filled({{{0, 0}, {10, 0}, {10, 5}, {5, 5}, {10, 5}, {10, 10}, {0, 10}}});
}

TEST(EarcutPolygon, FillsBesideASlitOfTwoPoints)
{
    filled({rectangle(0, 0, 10, 10), {{2, 5}, {8, 5}}});
}

TEST(EarcutPolygon, ClosesAnExtrudedSolid)
{
    std::mt19937 random(1);
    for (int round = 0; round < 20; ++round) {
        Rings rings{star(random, 60, 100)};
        for (Point const& centre : {Point{0, 0}, {12, 12}, {-12, 12}, {12, -12}})
            rings.push_back(reversed(star(random, 3 + int(random() % 20), 8, centre)));
        std::vector<int> const indices = filled(rings).indices;
        Soup const solid = extruded(rings, indices);
        EXPECT_EQ(closedSolidFaults(solid), "");
        EXPECT_EQ(manifoldFaults(solid), "");
        EXPECT_NEAR(volumeOf(solid), 10 * areaOf(rings), 0.01);
        EXPECT_EQ(eulerNumberOf(solid), 2 - 2 * 4);
    }
}

TEST(EarcutPolygon, FillsWhatRandomCellsCover)
{
    std::mt19937 random(2);
    int touching = 0;
    for (int round = 0; round < 300; ++round) {
        ClipperLib::Paths cells;
        std::set<std::pair<int, int>> covered;
        for (int i = 0; i < 30; ++i)
            covered.emplace(int(random() % 8), int(random() % 8));
        for (auto const& [x, y] : covered)
            cells.push_back({{x, y}, {x + 1, y}, {x + 1, y + 1}, {x, y + 1}});
        double area = 0;
        for (auto const& part : POLYGON::Polygons(cells).splitIntoParts(false, 0)) {
            Rings rings;
            for (ClipperLib::Path const& path : part.getPaths()) {
                rings.emplace_back();
                for (ClipperLib::IntPoint const& p : path)
                    rings.back().push_back({double(p.X), double(p.Y)});
            }
            Filling const filling = filled(rings);
            area += filling.area;
            std::vector<Point> const points = pointsOf(rings);
            touching += std::set<Point>(points.begin(), points.end()).size() < points.size();
        }
        EXPECT_EQ(area, double(covered.size()));
    }
    EXPECT_GT(touching, 0);
}

TEST(EarcutPolygon, ClosesEvenRingsThatCross)
{
    std::mt19937 random(3);
    for (int round = 0; round < 2000; ++round) {
        Rings rings(1 + random() % 3);
        for (Ring& ring : rings)
            for (int i = 0; i < 8; ++i) {
                double const x = double(random() % 12);
                ring.push_back({x, double(random() % 12)});
            }
        // A ring without a direction has no inside.
        if (std::any_of(rings.begin(), rings.end(), [](Ring const& r) { return areaOf(r) == 0; }))
            continue;
        expectTheRingsAsBorder(rings, EarcutPolygon::earcut(rings));
    }
}

TEST(EarcutPolygon, KeepsItsSignsWhereCoordinatesAreHardToTellApart)
{
    // A needle whose width is the last digit of its coordinates.
    double const near = std::nextafter(1.0, 2.0);
    EXPECT_EQ(filled({{{0, 0}, {1, 1}, {2, 2}, {1, near}}}).indices.size(), 6u);
    filled({{{1e6, 1e6}, {1e6 + 1, 1e6}, {1e6 + 2, 1e6 + 1e-9}, {1e6 + 1, 1e6 + 1e-9}}});
}

TEST(EarcutPolygon, GivesNothingWithoutAnArea)
{
    EXPECT_TRUE(EarcutPolygon::earcut({}).empty());
    EXPECT_TRUE(EarcutPolygon::earcut({{}}).empty());
    EXPECT_TRUE(EarcutPolygon::earcut({{{1, 1}}}).empty());
    EXPECT_TRUE(EarcutPolygon::earcut({{{1, 1}, {2, 2}}}).empty());
    EXPECT_TRUE(EarcutPolygon::earcut({{{1, 1}, {2, 2}, {3, 3}}}).empty());
}

TEST(EarcutPolygon, RefusesCoordinatesThatAreNoNumbers)
{
    double const nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THROW(EarcutPolygon::earcut({{{0, 0}, {1, nan}, {0, 1}}}), Mell::Exception);
}

TEST(EarcutPolygon, GivesTheSameTwice)
{
    std::mt19937 random(4);
    Rings const rings{star(random, 500, 100), star(random, 20, 20)};
    EXPECT_EQ(EarcutPolygon::earcut(rings), EarcutPolygon::earcut(rings));
}

TEST(EarcutPolygon, ReportsRisingPercentagesAndLetsACancelPass)
{
    std::mt19937 random(5);
    Rings const rings{star(random, 20000, 100)};
    std::vector<int> reported;
    EarcutPolygon::earcut(rings, [&](int percent) { reported.push_back(percent); });
    ASSERT_GE(reported.size(), 10u);
    EXPECT_EQ(reported.front(), 0);
    EXPECT_EQ(reported.back(), 100);
    EXPECT_TRUE(std::is_sorted(reported.begin(), reported.end()));
    for (int const moment : {0, int(reported.size()) / 2, int(reported.size()) - 1}) {
        int left = moment;
        EXPECT_THROW(EarcutPolygon::earcut(rings,
                                           [&](int) {
                                               if (left-- == 0)
                                                   throw Mell::AbortException("Aborting...");
                                           }),
                     Mell::AbortException);
    }
}
