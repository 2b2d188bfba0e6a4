// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/jobs/Exceptions.h"
#include "platform/services/POLYGON.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <set>

namespace {

using ClipperLib::IntPoint;
using ClipperLib::Path;
using ClipperLib::Paths;
using POLYGON::Polygons;
using POLYGON::PolygonsPart;

Path rectangle(ClipperLib::cInt x0, ClipperLib::cInt y0, ClipperLib::cInt x1, ClipperLib::cInt y1)
{
    return {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}};
}

Path reversed(Path path)
{
    std::reverse(path.begin(), path.end());
    return path;
}

/// The offset of the lap joint.
Polygons jointOffset(Polygons const& set, int distance)
{
    return set.offset(distance, ClipperLib::jtMiter, 1.2, 10.0, true);
}

std::set<std::pair<long long, long long>> cornersOf(Path const& path)
{
    std::set<std::pair<long long, long long>> corners;
    for (IntPoint const& p : path)
        corners.emplace(p.X, p.Y);
    return corners;
}

std::set<std::pair<long long, long long>> cornersOf(Polygons const& set)
{
    std::set<std::pair<long long, long long>> corners;
    for (Path const& path : set.getPaths())
        corners.merge(cornersOf(path));
    return corners;
}

double areaOf(Paths const& paths)
{
    double area = 0;
    for (Path const& path : paths)
        area += ClipperLib::Area(path);
    return area;
}

double areaOf(std::vector<PolygonsPart> const& parts)
{
    double area = 0;
    for (PolygonsPart const& part : parts)
        area += areaOf(part.getPaths());
    return area;
}

/// Each part has its outer contour first and anticlockwise and its holes clockwise, inside of it.
void expectSoundParts(std::vector<PolygonsPart> const& parts)
{
    for (PolygonsPart const& part : parts) {
        Paths const& paths = part.getPaths();
        ASSERT_FALSE(paths.empty());
        EXPECT_TRUE(ClipperLib::Orientation(paths.front()));
        for (std::size_t i = 1; i < paths.size(); ++i) {
            EXPECT_FALSE(ClipperLib::Orientation(paths[i]));
            for (IntPoint const& point : paths[i])
                EXPECT_NE(ClipperLib::PointInPolygon(point, paths.front()), 0);
        }
    }
}

/// A square with a square hole, the outer contour clockwise as the contours of a section are.
Polygons ring()
{
    return Polygons(
        Paths{reversed(rectangle(0, 0, 10000, 10000)), rectangle(4000, 4000, 6000, 6000)});
}

}  // namespace

TEST(Polygons, HoldsContoursInTheirOrder)
{
    Polygons set(Paths{rectangle(0, 0, 1, 1), rectangle(5, 5, 7, 7)});
    ASSERT_EQ(set.size(), 2u);
    EXPECT_EQ(set[1].path(), rectangle(5, 5, 7, 7));
    EXPECT_EQ(set.getPaths(), (Paths{rectangle(0, 0, 1, 1), rectangle(5, 5, 7, 7)}));
    set[0].path()[0].X = -3;
    EXPECT_EQ(set.getPaths()[0][0], IntPoint(-3, 0));
}

TEST(Polygons, AddsCopiesOfContours)
{
    Polygons source(Paths{rectangle(0, 0, 1, 1), rectangle(5, 5, 7, 7)});
    Polygons set;
    EXPECT_EQ(set.size(), 0u);
    set.add(source[1]);
    source.clear();
    EXPECT_EQ(source.size(), 0u);
    EXPECT_EQ(set.getPaths(), Paths{rectangle(5, 5, 7, 7)});
    for (int i = 0; i < 10; ++i)
        set.add(set[0]);
    EXPECT_EQ(set.getPaths(), Paths(11, rectangle(5, 5, 7, 7)));
}

TEST(Polygons, MovesByAssignment)
{
    Polygons source(Paths{rectangle(0, 0, 1, 1)});
    Polygons set(Paths{rectangle(5, 5, 7, 7)});
    set = std::move(source);
    EXPECT_EQ(set.getPaths(), Paths{rectangle(0, 0, 1, 1)});
}

TEST(PolygonsOffset, MovesEveryEdgeByTheDistance)
{
    Polygons const set(Paths{rectangle(0, 0, 10000, 20000)});
    Polygons const inset = jointOffset(set, -2000);
    ASSERT_EQ(inset.size(), 1u);
    EXPECT_EQ(cornersOf(inset.getPaths()[0]), cornersOf(rectangle(2000, 2000, 8000, 18000)));
    Polygons const unit = jointOffset(set, -1);
    EXPECT_EQ(cornersOf(unit.getPaths()[0]), cornersOf(rectangle(1, 1, 9999, 19999)));
}

TEST(PolygonsOffset, CutsCornersThatReachBeyondTheMiterLimit)
{
    // A right angle needs 1.41 times the distance, which is always allowed; this acute one ten.
    Polygons const wedge(Paths{{{0, 0}, {100000, -10000}, {100000, 10000}}});
    auto const reachOf = [&](double miterLimit) {
        ClipperLib::cInt least = 0;
        Polygons const grown = wedge.offset(1000, ClipperLib::jtMiter, miterLimit, 10, true);
        for (IntPoint const& p : grown.getPaths().at(0))
            least = std::min(least, p.X);
        return double(-least);
    };
    EXPECT_LE(reachOf(1.2), 2000);
    EXPECT_LE(reachOf(5), 5000);
    EXPECT_NEAR(reachOf(20), 1000 * std::hypot(10, 1), 2);
    Polygons const square(Paths{rectangle(0, 0, 10000, 10000)});
    EXPECT_EQ(cornersOf(jointOffset(square, 1000).getPaths().at(0)),
              cornersOf(rectangle(-1000, -1000, 11000, 11000)));
}

TEST(PolygonsOffset, RoundsWithinTheArcTolerance)
{
    Polygons const set(Paths{rectangle(0, 0, 100000, 100000)});
    Path const round = set.offset(50000, ClipperLib::jtRound, 2, 5, true).getPaths().at(0);
    for (std::size_t i = 0; i < round.size(); ++i) {
        IntPoint const& a = round[i];
        IntPoint const& b = round[(i + 1) % round.size()];
        double const x = double(a.X + b.X) / 2, y = double(a.Y + b.Y) / 2;
        double const beside =
            std::hypot(std::max({-x, x - 100000, 0.0}), std::max({-y, y - 100000, 0.0}));
        EXPECT_NEAR(beside, 50000, 7);
    }
}

TEST(PolygonsOffset, ShrinksOuterContoursAndGrowsHoles)
{
    for (bool const isTurned : {false, true}) {
        Polygons set = ring();
        if (isTurned)
            for (unsigned i = 0; i < set.size(); ++i)
                set[i].path() = reversed(set[i].path());
        Polygons const inset = set.offset(-500, ClipperLib::jtMiter, 2, 10, true);
        ASSERT_EQ(inset.size(), 2u);
        EXPECT_NEAR(areaOf(inset.getPaths()), 9000.0 * 9000 - 3000.0 * 3000, 1);
        int const outer = ClipperLib::Orientation(inset.getPaths()[0]) ? 0 : 1;
        EXPECT_FALSE(ClipperLib::Orientation(inset.getPaths()[1 - outer]));
        EXPECT_EQ(cornersOf(inset.getPaths()[outer]), cornersOf(rectangle(500, 500, 9500, 9500)));
        EXPECT_EQ(cornersOf(inset.getPaths()[1 - outer]),
                  cornersOf(rectangle(3500, 3500, 6500, 6500)));
    }
}

TEST(PolygonsOffset, TakesALoneHoleForAnOuterContour)
{
    Polygons const hole(Paths{rectangle(4000, 4000, 6000, 6000)});
    EXPECT_GT(areaOf(jointOffset(hole, 300).getPaths()), 2000.0 * 2000);
    Polygons const turned(Paths{reversed(rectangle(4000, 4000, 6000, 6000))});
    EXPECT_EQ(areaOf(jointOffset(turned, 300).getPaths()),
              areaOf(jointOffset(hole, 300).getPaths()));
}

TEST(PolygonsOffset, GivesAnEmptySetWhereNothingIsLeft)
{
    Polygons const bar(Paths{rectangle(0, 0, 4000, 50000)});
    EXPECT_EQ(jointOffset(bar, -2000).size(), 0u);
    EXPECT_EQ(jointOffset(bar, -2001).size(), 0u);
    EXPECT_EQ(jointOffset(bar, -1999).size(), 1u);
    EXPECT_EQ(jointOffset(ring(), -2000).size(), 0u);
    EXPECT_EQ(jointOffset(Polygons(), -10).size(), 0u);
    EXPECT_EQ(jointOffset(Polygons(), 10).size(), 0u);
}

TEST(PolygonsOffset, OnlyContoursThatAreTooNarrowVanish)
{
    Polygons const set(Paths{rectangle(0, 0, 1000, 9000), rectangle(5000, 0, 9000, 9000)});
    Polygons const inset = jointOffset(set, -600);
    ASSERT_EQ(inset.size(), 1u);
    EXPECT_EQ(cornersOf(inset.getPaths()[0]), cornersOf(rectangle(5600, 600, 8400, 8400)));
}

TEST(PolygonsOffset, JoinsWhatGrowsTogetherAndPartsWhatIsPinchedOff)
{
    Polygons const two(Paths{rectangle(0, 0, 1000, 1000), rectangle(1500, 0, 2500, 1000)});
    EXPECT_EQ(jointOffset(two, 300).size(), 1u);
    Path const dumbbell = {{0, 0},       {3000, 0},    {3000, 1300}, {6000, 1300},
                           {6000, 0},    {9000, 0},    {9000, 3000}, {6000, 3000},
                           {6000, 1700}, {3000, 1700}, {3000, 3000}, {0, 3000}};
    EXPECT_EQ(jointOffset(Polygons(Paths{dumbbell}), -300).size(), 2u);
}

TEST(PolygonsOffset, ByZeroKeepsTheShape)
{
    Polygons const same = jointOffset(ring(), 0);
    ASSERT_EQ(same.size(), 2u);
    EXPECT_EQ(areaOf(same.getPaths()), 1e8 - 4e6);
}

TEST(PolygonsOffset, IgnoresARepeatedFirstPoint)
{
    Path doubled = reversed(rectangle(0, 0, 10000, 10000));
    doubled.insert(doubled.begin(), doubled.front());
    Polygons const inset = jointOffset(Polygons(Paths{doubled}), -2000);
    ASSERT_EQ(inset.size(), 1u);
    EXPECT_EQ(cornersOf(inset.getPaths()[0]), cornersOf(rectangle(2000, 2000, 8000, 8000)));
}

TEST(PolygonsOffset, CleanContoursPassNoPointTwice)
{
    std::mt19937 random(11);
    int touching = 0;
    for (int round = 0; round < 2000; ++round) {
        Paths paths(2 + random() % 3);
        for (Path& path : paths)
            for (int i = 0; i < 7; ++i) {
                int const x = int(random() % 12);
                path.emplace_back(x, int(random() % 12));
            }
        Polygons const set(paths);
        int const distance = int(random() % 3) - 1;
        Polygons const plain = set.offset(distance, ClipperLib::jtMiter, 2, 10, false);
        Polygons const clean = set.offset(distance, ClipperLib::jtMiter, 2, 10, true);
        EXPECT_EQ(areaOf(clean.getPaths()), areaOf(plain.getPaths()));
        for (Path const& path : clean.getPaths())
            EXPECT_EQ(cornersOf(path).size(), path.size());
        for (Path const& path : plain.getPaths())
            touching += cornersOf(path).size() != path.size();
    }
    EXPECT_GT(touching, 0);
}

TEST(PolygonsOffset, SaysWhatIsWrongWithCoordinatesOutOfRange)
{
    auto const far = ClipperLib::cInt(0x7000000000000000);
    EXPECT_THROW(jointOffset(Polygons(Paths{rectangle(0, 0, far, far)}), 10), Mell::Exception);
    EXPECT_THROW(Polygons(Paths{rectangle(0, 0, far, far)}).splitIntoParts(false, 0),
                 Mell::Exception);
}

TEST(PolygonsParts, HaveTheOuterContourFirstAndThenItsHoles)
{
    Polygons const set(
        Paths{rectangle(70, 70, 80, 80), rectangle(0, 0, 100, 100), rectangle(20, 20, 30, 30)});
    auto const parts = set.splitIntoParts(false, 0);
    ASSERT_EQ(parts.size(), 1u);
    expectSoundParts(parts);
    Paths const& paths = parts[0].getPaths();
    ASSERT_EQ(paths.size(), 3u);
    EXPECT_EQ(cornersOf(paths[0]), cornersOf(rectangle(0, 0, 100, 100)));
    EXPECT_EQ(cornersOf(paths[1]), cornersOf(rectangle(20, 20, 30, 30)));
    EXPECT_EQ(cornersOf(paths[2]), cornersOf(rectangle(70, 70, 80, 80)));
}

TEST(PolygonsParts, AnIslandInAHoleIsAPartOfItsOwn)
{
    Polygons const set(Paths{rectangle(0, 0, 100, 100), rectangle(10, 10, 90, 90),
                             rectangle(20, 20, 80, 80), rectangle(30, 30, 70, 70)});
    auto const parts = set.splitIntoParts(false, 0);
    ASSERT_EQ(parts.size(), 2u);
    expectSoundParts(parts);
    EXPECT_EQ(cornersOf(parts[0].getPaths()[1]), cornersOf(rectangle(10, 10, 90, 90)));
    EXPECT_EQ(cornersOf(parts[1].getPaths()[0]), cornersOf(rectangle(20, 20, 80, 80)));
    EXPECT_EQ(cornersOf(parts[1].getPaths()[1]), cornersOf(rectangle(30, 30, 70, 70)));
}

TEST(PolygonsParts, NoContoursGiveNoParts)
{
    EXPECT_TRUE(Polygons().splitIntoParts(false, 0).empty());
    EXPECT_TRUE(Polygons(Paths{{{0, 0}, {5, 5}}}).splitIntoParts(false, 0).empty());
}

TEST(PolygonsParts, DoNotDependOnOrderDirectionAndFirstPoint)
{
    Paths paths{rectangle(0, 0, 100, 100),  rectangle(10, 10, 90, 90),  rectangle(20, 20, 30, 30),
                rectangle(20, 50, 30, 60),  rectangle(40, 20, 60, 80),  rectangle(45, 30, 50, 40),
                rectangle(45, 60, 50, 70),  rectangle(200, 0, 300, 50), rectangle(210, 10, 220, 20),
                rectangle(210, 30, 220, 40)};
    auto const expected = Polygons(paths).splitIntoParts(false, 0);
    expectSoundParts(expected);
    std::mt19937 random(5);
    for (int round = 0; round < 50; ++round) {
        std::shuffle(paths.begin(), paths.end(), random);
        for (Path& path : paths) {
            std::rotate(path.begin(), path.begin() + random() % 4, path.end());
            if (random() % 2)
                std::reverse(path.begin(), path.end());
        }
        auto const parts = Polygons(paths).splitIntoParts(false, 0);
        ASSERT_EQ(parts.size(), expected.size());
        for (std::size_t i = 0; i < parts.size(); ++i)
            EXPECT_EQ(parts[i].getPaths(), expected[i].getPaths());
    }
}

TEST(PolygonsParts, OverlapsAreJoinedOrTakenOut)
{
    Polygons const set(Paths{rectangle(0, 0, 20, 20), rectangle(10, 10, 30, 30)});
    auto const joined = set.splitIntoParts(true, 0);
    EXPECT_EQ(joined.size(), 1u);
    EXPECT_EQ(areaOf(joined), 700);
    EXPECT_EQ(areaOf(set.splitIntoParts(false, 0)), 600);
}

TEST(PolygonsParts, SmallPartsAndHolesAreLeftOut)
{
    Polygons const set(Paths{rectangle(0, 0, 100, 100), rectangle(10, 10, 20, 20),
                             rectangle(30, 30, 35, 35), rectangle(200, 0, 205, 5),
                             rectangle(300, 0, 310, 10)});
    auto const parts = set.splitIntoParts(false, 100);
    ASSERT_EQ(parts.size(), 2u);
    EXPECT_EQ(areaOf(parts[0].getPaths()), 10000 - 100);
    EXPECT_EQ(areaOf(parts[1].getPaths()), 100);
}

TEST(PolygonsParts, CoverExactlyWhatRandomCellsCover)
{
    std::mt19937 random(17);
    for (int round = 0; round < 200; ++round) {
        std::set<std::pair<int, int>> covered;
        for (int i = 0; i < 20; ++i)
            covered.emplace(int(random() % 7) * 10, int(random() % 7) * 10);
        Paths cells;
        for (auto const& [x, y] : covered) {
            cells.push_back(rectangle(x, y, x + 10, y + 10));
            if (random() % 2)
                cells.back() = reversed(cells.back());
        }
        auto const parts = Polygons(cells).splitIntoParts(false, 0);
        expectSoundParts(parts);
        EXPECT_EQ(areaOf(parts), 100.0 * double(covered.size()));
    }
}

/// From a section of a scan, whose points fell together on the grid: the clipping library makes a
/// contour of the spike that lies apart from what is moved inward.
TEST(Polygons, ASpikeLeavesNothingBesideTheInset)
{
    Path const contour{{-27831, 40406}, {-25783, 39250}, {-6456, 2264}};
    Path spiked = contour;
    spiked.insert(spiked.end(), {{-6456, 2263}, {-6456, 2264}});
    for (std::size_t start = 0; start < spiked.size(); ++start) {
        SCOPED_TRACE(start);
        std::rotate(spiked.begin(), spiked.begin() + 1, spiked.end());
        for (int const distance : {-1194, -494, -20})
            EXPECT_EQ(cornersOf(jointOffset(Polygons({spiked}), distance)),
                      cornersOf(jointOffset(Polygons({contour}), distance)));
    }
}
