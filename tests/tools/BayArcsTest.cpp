// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Rounds.h"
#include "tests/tools/DistanceJudge.h"
#include "tests/tools/ToothedPolygon.h"
#include "tools/BayArcs.h"

#include <array>

namespace {

using Freecut::Curve;
using Freecut::Loops;
using Freecut::SideOrArc;
using Freecut::SidesWithArcs;

/// A block with a groove along its upper edge, half round, its points on the grid.
Curve grooved(double radius, int points)
{
    Curve curve{{-3000, -3000}, {3000, -3000}, {3000, 0}};
    for (int i = 0; i <= points; ++i) {
        double const angle = M_PI * i / points;
        curve.emplace_back(std::trunc(radius * std::cos(angle)),
                           std::trunc(-radius * std::sin(angle)));
    }
    curve.emplace_back(-3000, 0);
    return curve;
}

std::size_t arcCount(SidesWithArcs const& sides)
{
    return std::size_t(std::count_if(sides.begin(), sides.end(),
                                     [](SideOrArc const& side) { return side.centre; }));
}

/// More points than are moved as they are.
Loops blob(std::mt19937& random, double noise)
{
    auto const uniform = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    int const count = 4500, slow = 3 + int(random() % 20), fast = 40 + int(random() % 60);
    double const slowPhase = uniform(0, 6), slowHeight = uniform(0, 2),
                 fastHeight = uniform(0, 0.6);
    Freecut::Ring ring;
    for (int i = 0; i < count; ++i) {
        double const angle = 2 * M_PI * i / count;
        double const radius = 10 + slowHeight * std::sin(slow * angle + slowPhase) +
                              fastHeight * std::sin(fast * angle) + uniform(-noise, noise);
        ring.push_back({float(radius * std::cos(angle)), float(radius * std::sin(angle)), 0});
    }
    return {ring};
}

}  // namespace

TEST(BayArcs, FillABayThatIsNarrowerThanTheDisk)
{
    SidesWithArcs const sides = Freecut::withBaysFilled(grooved(200, 90), 250, 1);
    EXPECT_GE(arcCount(sides), 1u);
    EXPECT_LE(sides.size(), 12u);
    for (std::size_t i = 0; i < sides.size(); ++i)
        if (sides[i].centre) {
            UPoint2<double> const& end = sides[(i + 1) % sides.size()].start;
            EXPECT_NEAR(std::hypot(sides[i].centre->X() - sides[i].start.X(),
                                   sides[i].centre->Y() - sides[i].start.Y()),
                        250, 1e-6);
            EXPECT_NEAR(std::hypot(sides[i].centre->X() - end.X(), sides[i].centre->Y() - end.Y()),
                        250, 1e-6);
            // The centre lies above the groove, outside of the block.
            EXPECT_GT(sides[i].centre->Y(), -60);
        }
}

TEST(BayArcs, AreNotPutWhereTheDiskReachesOrOnTheOtherSide)
{
    EXPECT_EQ(arcCount(Freecut::withBaysFilled(grooved(800, 60), 250, 1)), 0u);
    // The groove is a bay of the outside alone.
    EXPECT_EQ(arcCount(Freecut::withBaysFilled(grooved(200, 90), -250, 1)), 0u);
    // A straight edge is none, however many points it has.
    Curve box{{0, -3000}, {3000, -3000}, {3000, 0}};
    for (int x = 2990; x > 0; x -= 10)
        box.emplace_back(x, 0);
    box.emplace_back(0, 0);
    EXPECT_EQ(arcCount(Freecut::withBaysFilled(box, 250, 1)), 0u);
    EXPECT_EQ(Freecut::withBaysFilled(box, 250, 1).size(), 4u);
}

TEST(BayArcs, AreFlattenedWithinTheTolerance)
{
    SidesWithArcs const sides = Freecut::withBaysFilled(grooved(200, 90), 250, 1);
    Curve const flat = Freecut::flattened(sides, 1);
    ASSERT_GT(flat.size(), sides.size());
    std::size_t side = sides.size() - 1;
    for (UPoint2<double> const& p : flat) {
        if (side + 1 == sides.size() ? p == sides[0].start : p == sides[side + 1].start)
            side = (side + 1) % sides.size();
        else if (sides[side].centre)
            EXPECT_NEAR(
                std::hypot(p.X() - sides[side].centre->X(), p.Y() - sides[side].centre->Y()), 250,
                1e-6);
        else
            ADD_FAILURE() << "a point on a straight side";
    }
}

TEST(BayArcs, OfTabsMovedByAboutTheRadiusOfTheirArcsLeaveThemAtThatDistance)
{
    // Arcs of 0.25 mm, whose edges are a few thousandths long, shrink to scribbles around their
    // middles; so do roundings of 0.2 mm.
    std::mt19937 random(5);
    std::size_t number = 0;
    for (double const distance : {0.25, -0.25, 0.2, -0.2, 0.1, 0.22, -0.22, 0.3, -0.3, 0.15, 0.4})
        for (ToothedPolygon& polygon :
             std::array{ToothedPolygon::strip(2, 30, 0), ToothedPolygon::strip(2, 30, 0.3),
                        ToothedPolygon::round(2, 6)}) {
            if (!isTried(number++))
                continue;
            SCOPED_TRACE(distance);
            Loops const source = polygon.source(true);
            std::size_t points = 0;
            for (Freecut::Ring const& ring : source)
                points += ring.size();
            EXPECT_GT(points, 4000u);
            expectMovedBy(source, distance, random);
        }
}

TEST(BayArcs, OfAnyBaysLeaveTheMovedOutlineAtItsDistance)
{
    std::mt19937 random(11);
    for (int run = 0; run < rounds(24); ++run) {
        double const noise = run % 3 == 0 ? 0.01 : 0;
        Loops const source = blob(random, noise);
        // Whole thousandths, as it is truncated to them.
        double const distance =
            std::uniform_int_distribution<int>(30, run % 2 ? 200 : 1000)(random) / 1000.0 + 1e-9;
        for (double const way : {distance, -distance}) {
            SCOPED_TRACE(testing::Message() << run << ' ' << way);
            expectMovedBy(source, way, random);
        }
    }
}
