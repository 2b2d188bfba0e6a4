// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/services/DividedFace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <numeric>

namespace {

using Number = DividedFace::Number;
using Edge = DividedFace::Edge;

/// The facet on the left of each edge.
std::map<Edge, std::size_t> edgesOf(Facets const& facets)
{
    std::map<Edge, std::size_t> edges;
    for (std::size_t f = 0; f < facets.corners.size(); ++f)
        for (std::size_t k = 0; k < 3; ++k) {
            Edge const edge(facets.corners[f][k], facets.corners[f][(k + 1) % 3]);
            EXPECT_TRUE(edges.emplace(edge, f).second) << "two facets on one side of an edge";
        }
    return edges;
}

void expectCovered(DividedFace const& face)
{
    double area = 0;
    std::set<Number> used;
    for (MeshArrays::Corners const& c : face.facets.corners) {
        EXPECT_EQ(face.orient(c[0], c[1], c[2]), 1);
        area += face.area(c[0], c[1], c[2]);
        used.insert(c.begin(), c.end());
    }
    double const whole = face.area(face.cornerAt(0), face.cornerAt(1), face.cornerAt(2));
    EXPECT_NEAR(area, whole, 1e-9 * whole);
    std::vector<Number> const points = face.allPoints();
    EXPECT_EQ(used, std::set<Number>(points.begin(), points.end()));
    std::set<Edge> sides;
    auto const edges = edgesOf(face.facets);
    for (auto const& [edge, facet] : edges)
        if (!edges.contains({edge.second, edge.first}))
            sides.insert(edge);
    EXPECT_EQ(sides, face.sides());
}

std::set<Edge> bordersOf(DividedFace const& face)
{
    std::set<Edge> borders = face.sides();
    for (FaceSegment const& s : face.segments()) {
        borders.emplace(s.from, s.to);
        borders.emplace(s.to, s.from);
    }
    return borders;
}

/// Borders lie along sides and segments, all along.
void expectBorders(DividedFace const& face)
{
    std::set<Edge> const borders = bordersOf(face), sides = face.sides();
    auto const edges = edgesOf(face.facets);
    auto const& written = face.facets.borders;
    EXPECT_TRUE(std::is_sorted(written.begin(), written.end()));
    ASSERT_EQ(written.size(), borders.size());
    for (Facets::Border const& border : written) {
        Edge const edge(border.from, border.to);
        EXPECT_TRUE(borders.contains(edge));
        EXPECT_EQ(border.isSide, sides.contains(edge));
        ASSERT_TRUE(edges.contains(edge));
        EXPECT_EQ(border.region, face.facets.regions[edges.at(edge)]);
    }
}

/// Regions are what facets make that are joined over edges off the borders.
void expectRegions(DividedFace const& face)
{
    std::set<Edge> const borders = bordersOf(face);
    auto const edges = edgesOf(face.facets);
    std::vector<std::size_t> parents(face.facets.corners.size());
    std::iota(parents.begin(), parents.end(), std::size_t(0));
    auto const rootOf = [&](std::size_t f) {
        while (parents[f] != f)
            f = parents[f];
        return f;
    };
    for (auto const& [edge, facet] : edges)
        if (!borders.contains(edge))
            parents[rootOf(facet)] = rootOf(edges.at({edge.second, edge.first}));
    std::set<std::pair<std::size_t, Number>> pairs;
    std::set<std::size_t> roots;
    for (std::size_t f = 0; f < parents.size(); ++f) {
        pairs.emplace(rootOf(f), face.facets.regions[f]);
        roots.insert(rootOf(f));
    }
    EXPECT_EQ(pairs.size(), roots.size());
    EXPECT_EQ(face.facets.ends.back().regions, roots.size());
}

void expectDivided(DividedFace const& face)
{
    expectCovered(face);
    expectBorders(face);
    expectRegions(face);
}

/// What is told to be wrong is wrong.
void expectFaultsAreTrue(DividedFace const& face)
{
    for (FaceFaults::Break const& fault : face.faults.breaks)
        EXPECT_TRUE(face.isWithin(fault.point, fault.segment));
    for (FaceFaults::Crossing const& fault : face.faults.crossings)
        EXPECT_TRUE(face.doCross(fault.first, fault.second));
}

WholeTriangle const plainFace{WholePoint{{0, 0, 0}}, WholePoint{{8, 0, 0}}, WholePoint{{0, 8, 0}}};

/// An upright triangle that has the segment from (x0, y0) to (x1, y1) in common with the plane z =
/// 0.
WholeTriangle wall(int x0, int y0, int x1, int y1)
{
    return {WholePoint{{2 * x0 - x1, 2 * y0 - y1, -1}}, WholePoint{{x1, y1, -1}},
            WholePoint{{x1, y1, 1}}};
}

}  // namespace

TEST(FaceTriangulation, FaceWithoutPointsIsItsOnlyFacet)
{
    DividedFace face(plainFace, {});
    ASSERT_TRUE(face.divide());
    ASSERT_EQ(face.facets.corners.size(), 1u);
    EXPECT_EQ(face.facets.borders.size(), 3u);
    expectDivided(face);
}

TEST(FaceTriangulation, SegmentFromSideToSidePartsTheFaceInTwoRegions)
{
    DividedFace face(plainFace, {wall(2, 0, 2, 6)});
    ASSERT_TRUE(face.divide());
    EXPECT_TRUE(face.faults.isEmpty());
    EXPECT_EQ(face.facets.corners.size(), 3u);
    EXPECT_EQ(face.facets.ends.back().regions, 2u);
    expectDivided(face);
}

TEST(FaceTriangulation, SegmentThatEndsInTheFacePartsNothing)
{
    DividedFace face(plainFace, {wall(1, 1, 3, 2)});
    ASSERT_TRUE(face.divide());
    EXPECT_EQ(face.facets.ends.back().regions, 1u);
    expectDivided(face);
}

TEST(FaceTriangulation, RingInTheFaceIsARegionOfItsOwn)
{
    DividedFace face(plainFace, {wall(1, 1, 4, 1), wall(4, 1, 2, 3), wall(2, 3, 1, 1)});
    ASSERT_TRUE(face.divide());
    EXPECT_TRUE(face.faults.isEmpty());
    EXPECT_EQ(face.allPoints().size(), 6u);
    EXPECT_EQ(face.facets.ends.back().regions, 2u);
    expectDivided(face);
}

TEST(FaceTriangulation, SegmentsThatCrossAreTold)
{
    DividedFace face(plainFace, {wall(1, 1, 3, 3), wall(1, 2, 4, 1)});
    ASSERT_TRUE(face.divide());
    EXPECT_EQ(face.faults.crossings.size(), 1u);
    EXPECT_TRUE(face.faults.breaks.empty());
    expectFaultsAreTrue(face);
}

TEST(FaceTriangulation, AllSegmentsInTheWayOfOneAreTold)
{
    std::vector<WholeTriangle> walls;
    for (int x = 1; x <= 40; ++x)
        walls.push_back(wall(x, 1, x, 9));
    for (bool const isAcrossFirst : {false, true}) {
        std::vector<WholeTriangle> all = walls;
        all.insert(isAcrossFirst ? all.begin() : all.end(), wall(0, 4, 41, 5));
        DividedFace face({WholePoint{{-1, 0, 0}}, WholePoint{{100, 0, 0}}, WholePoint{{0, 100, 0}}},
                         all);
        ASSERT_TRUE(face.divide());
        EXPECT_EQ(face.faults.crossings.size(), 40u);
        expectFaultsAreTrue(face);
    }
}

TEST(FaceTriangulation, PointOnASegmentIsTold)
{
    DividedFace face(plainFace, {wall(1, 1, 3, 3), wall(2, 2, 3, 1)});
    ASSERT_TRUE(face.divide());
    EXPECT_TRUE(face.faults.crossings.empty());
    EXPECT_FALSE(face.faults.breaks.empty());
    expectFaultsAreTrue(face);
}

TEST(FaceTriangulation, VertexAtAPointOfAnEdgeIsTheSamePoint)
{
    // The first ends with an edge through (2, 2, 0), where the second has a vertex.
    WholeTriangle const through = wall(1, 1, 2, 2);
    WholeTriangle const standing{WholePoint{{2, 2, 0}}, WholePoint{{4, 1, 0}},
                                 WholePoint{{3, 1, 5}}};
    for (bool const isVertexFirst : {false, true}) {
        DividedFace face(plainFace, isVertexFirst ? std::vector{standing, through}
                                                  : std::vector{through, standing});
        ASSERT_TRUE(face.divide());
        EXPECT_TRUE(face.faults.isEmpty());
        EXPECT_EQ(face.allPoints().size(), 6u);
        expectDivided(face);
    }
}

TEST(FaceTriangulation, RandomFacesAreCoveredAndAllSegmentsRespected)
{
    std::mt19937 random(1);
    int faulty = 0, flawless = 0;
    std::size_t segments = 0;
    for (int i = 0; i < 700 && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        int const reach = i % 3 == 0 ? 2 : 7;
        WholeTriangle const t = randomTriangle(random, -reach, reach);
        std::vector<WholeTriangle> cutters(1 + random() % 20);
        for (WholeTriangle& cutter : cutters)
            cutter = randomTriangle(random, -reach, reach);
        DividedFace face(t, cutters);
        ASSERT_TRUE(face.divide());
        ++(face.isFaulty() ? faulty : flawless);
        for (int round = 0; round < 30 && face.isFaulty(); ++round) {
            EXPECT_FALSE(face.faults.isEmpty());
            expectFaultsAreTrue(face);
            face.mend();
            ASSERT_TRUE(face.divide());
        }
        EXPECT_TRUE(face.faults.isEmpty());
        expectDivided(face);
        segments += face.segments().size();
    }
    EXPECT_GT(faulty, 100);
    EXPECT_GT(flawless, 100);
    EXPECT_GT(segments, 2500u);
}

TEST(FaceTriangulation, RowsOfRingsInALongFaceAreRegionsOfTheirOwn)
{
    // Far more points than are found without an order of theirs.
    constexpr int columns = 60, rows = 3;
    WholeTriangle const longFace{WholePoint{{0, 0, 0}}, WholePoint{{2000, 0, 0}},
                                 WholePoint{{0, 40, 0}}};
    std::vector<WholeTriangle> walls;
    for (int column = 0; column < columns; ++column)
        for (int row = 0; row < rows; ++row) {
            // Not in the order in which they stand.
            int const x = 5 + 10 * (column * 7 % columns), y = 2 + 8 * row;
            walls.push_back(wall(x, y, x + 4, y));
            walls.push_back(wall(x + 4, y, x + 4, y + 4));
            walls.push_back(wall(x + 4, y + 4, x, y + 4));
            walls.push_back(wall(x, y + 4, x, y));
        }
    DividedFace face(longFace, walls);
    ASSERT_TRUE(face.divide());
    EXPECT_TRUE(face.faults.isEmpty());
    EXPECT_EQ(face.allPoints().size(), 3u + 4 * columns * rows);
    EXPECT_EQ(face.facets.ends.back().regions, 1u + columns * rows);
    // Each point within the face adds two facets to the one that it is.
    EXPECT_EQ(face.facets.corners.size(), 1u + 2 * 4 * columns * rows);
    EXPECT_EQ(edgesOf(face.facets).size(), 3 * face.facets.corners.size());
}

TEST(FaceTriangulation, CrowdedFacesAreCoveredAndAllSegmentsRespected)
{
    std::mt19937 random(2);
    std::size_t mostInside = 0;
    for (int i = 0; i < 3 && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        WholeTriangle const t = randomTriangle(random, -8, 8);
        std::vector<WholeTriangle> cutters(66);
        for (WholeTriangle& cutter : cutters)
            cutter = randomTriangle(random, -8, 8);
        DividedFace face(t, cutters);
        ASSERT_TRUE(face.divide());
        for (int round = 0; round < 60 && face.isFaulty(); ++round) {
            face.mend();
            ASSERT_TRUE(face.divide());
        }
        EXPECT_TRUE(face.faults.isEmpty());
        expectDivided(face);
        mostInside = std::max(mostInside, face.allPoints().size() - face.sides().size());
    }
    EXPECT_GT(mostInside, 64u);
}

TEST(FaceTriangulation, WithoutFlipsForTheirShapeFacesAreDividedAllTheSame)
{
    std::mt19937 random(3);
    std::size_t different = 0;
    for (int i = 0; i < 100 && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        WholeTriangle const t = randomTriangle(random, -7, 7);
        std::vector<WholeTriangle> cutters(1 + random() % 12);
        for (WholeTriangle& cutter : cutters)
            cutter = randomTriangle(random, -7, 7);
        DividedFace face(t, cutters, {}, {.forShape = 0, .forShapePerFacet = 0});
        ASSERT_TRUE(face.divide());
        for (int round = 0; round < 30 && face.isFaulty(); ++round) {
            face.mend();
            ASSERT_TRUE(face.divide());
        }
        EXPECT_TRUE(face.faults.isEmpty());
        expectDivided(face);
        DividedFace best(t, cutters);
        ASSERT_TRUE(best.divide());
        for (int round = 0; round < 30 && best.isFaulty(); ++round) {
            best.mend();
            ASSERT_TRUE(best.divide());
        }
        different += best.facets.corners != face.facets.corners;
    }
    EXPECT_GT(different, 20u);
}

TEST(FaceTriangulation, LongRowsOnTwoSidesAreDividedThoughNotTheBestWay)
{
    constexpr int points = 400;
    WholeTriangle const wide{WholePoint{{0, 0, 0}}, WholePoint{{points + 1, 0, 0}},
                             WholePoint{{0, points + 1, 0}}};
    std::vector<WholeTriangle> walls;
    for (int i = 1; i < points; ++i) {
        walls.push_back(wall(i, 0, i + 1, 0));
        walls.push_back(wall(0, i, 0, i + 1));
    }
    DividedFace face(wide, walls), best(wide, walls, {}, {.forShape = 10 * points * points});
    ASSERT_TRUE(face.divide());
    ASSERT_TRUE(best.divide());
    EXPECT_EQ(face.facets.corners.size(), 1u + 2 * points);
    expectDivided(face);
    expectDivided(best);
    EXPECT_NE(face.facets.corners, best.facets.corners);
}

TEST(FaceTriangulation, SegmentsAreInTheFaceOrToldWhateverTheLimits)
{
    // A limit that exact segments do not reach, made so small that they do.
    std::mt19937 random(4);
    int left = 0, divided = 0;
    for (int i = 0; i < 400 && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        WholeTriangle const t = randomTriangle(random, -7, 7);
        std::vector<WholeTriangle> cutters(1 + random() % 6);
        for (WholeTriangle& cutter : cutters)
            cutter = randomTriangle(random, -7, 7);
        DividedFace face(t, cutters, {}, {.forSegment = 0, .forSegmentPerSquare = 0});
        if (!face.divide()) {
            ++left;
            continue;
        }
        ++divided;
        if (face.isFaulty())
            EXPECT_FALSE(face.faults.isEmpty());
        else
            expectDivided(face);
    }
    EXPECT_GT(left, 20);
    EXPECT_GT(divided, 20);
}

TEST(FaceTriangulation, PointThatIsNotFoundIsNotLeftOut)
{
    // A limit that exact points do not reach, made so small that they do. No segment ends at the point,
    // and would be missed.
    WholeTriangle const tip{WholePoint{{2, 2, 0}}, WholePoint{{2, 3, 4}}, WholePoint{{3, 2, 4}}};
    DividedFace face(plainFace, {tip}, {}, {.forPoint = 0, .forPointPerFacet = 0});
    EXPECT_FALSE(face.divide());
    DividedFace found(plainFace, {tip});
    EXPECT_TRUE(found.divide());
    EXPECT_EQ(found.facets.corners.size(), 3u);
    EXPECT_TRUE(found.segments().empty());
}
