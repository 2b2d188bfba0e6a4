// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/PinPlacement.h"
#include "platform/geometry/MellMath.h"
#include "platform/jobs/Exceptions.h"
#include "tests/connectors/ConnectorScene.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using Point = UPoint3<float>;

std::vector<Point> positionsOn(Section& section, PinHoleParas const& paras)
{
    PlaneFrame const frame = frameOf(*planeAt({0, 0, 0}));
    return PinPlacement(paras, frame).computePositions(section.contours, &section.cap);
}

PinHoleParas besideContours(float sidedistance)
{
    PinHoleParas paras;
    paras.isSidedis = true;
    paras.sidedistance = sidedistance;
    return paras;
}

float leastDistance(std::vector<Point> const& points)
{
    float least = 1e30f;
    for (std::size_t i = 0; i < points.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            least = std::min(least, MellMath<float>::DisPt2Pt(points[i], points[j]));
    return least;
}

/// A wavy outline of many points.
Ring gear(int points, float radius, float depth, int teeth)
{
    Ring ring = circle(1, points);
    for (int i = 0; i < points; ++i) {
        float const r =
            radius + depth * std::sin(float(i) * 6.2831853f * float(teeth) / float(points));
        ring[std::size_t(i)] = {ring[std::size_t(i)].X() * r, ring[std::size_t(i)].Y() * r};
    }
    return ring;
}

}  // namespace

TEST(PinPlacement, CentreLinePositionsKeepTheirDistances)
{
    for (auto const& [name, rings] : commonSections())
        for (float const spacing : {6.0f, 10.0f}) {
            SCOPED_TRACE(testing::Message() << name << " " << spacing);
            auto const section = sectionOf(rings);
            PinHoleParas paras;
            paras.spacing = spacing;
            paras.keepClear = true;
            auto const positions = positionsOn(*section, paras);
            EXPECT_GE(positions.size(), 3u);
            EXPECT_GE(leastDistance(positions), spacing - 2e-3f);
            for (Point const& p : positions) {
                EXPECT_GT(distanceFrom(section->contours, p),
                          paras.radius + paras.sideclearance + 0.1f);
                EXPECT_TRUE(isOn(section->cap, p));
                EXPECT_NEAR(p.Z(), 0, 1e-4f);
            }
            EXPECT_EQ(positions, positionsOn(*section, paras));
        }
}

TEST(PinPlacement, PositionsTooNearAContourAreLeftOutIfThatIsAskedForAndElseStay)
{
    // The waves of the outline are corners that centre lines pass closely.
    auto sections = commonSections();
    sections.emplace_back("gear", std::vector<Ring>{gear(4000, 60, 4, 40)});
    std::size_t leftOut = 0;
    for (auto const& [name, rings] : sections) {
        auto const section = sectionOf(rings);
        PinHoleParas paras;
        auto const all = positionsOn(*section, paras);
        paras.keepClear = true;
        auto const clear = positionsOn(*section, paras);
        std::vector<Point> expected;
        for (Point const& p : all)
            if (distanceFrom(section->contours, p) > paras.radius + paras.sideclearance + 0.1f)
                expected.push_back(p);
        EXPECT_EQ(clear, expected) << name;
        leftOut += all.size() - clear.size();
    }
    EXPECT_GT(leftOut, 0u);
}

TEST(PinPlacement, NoneStandsInAHoleAtTheDistanceOfTheRadius)
{
    // Around the hole positions are computed inside it, the side distance away from the face.
    auto const section =
        sectionOf({rectangle(-40, -30, 40, 30), rectangle(-15, -15, 15, 15, true)});
    PinHoleParas paras = besideContours(2);
    paras.radius = 2;
    auto const positions = positionsOn(*section, paras);
    EXPECT_GT(positions.size(), 10u);
    for (Point const& p : positions)
        EXPECT_TRUE(isOn(section->cap, p)) << p.X() << ", " << p.Y();
}

TEST(PinPlacement, OfABarTheyStandInARowAlongItsMiddle)
{
    auto const section = sectionOf({rectangle(-50, -5, 50, 5)});
    auto const positions = positionsOn(*section, {});
    EXPECT_GE(positions.size(), 14u);
    EXPECT_LE(positions.size(), 17u);
    for (Point const& p : positions)
        EXPECT_NEAR(p.Y(), 0, std::abs(p.X()) < 44 ? 0.3f : 3.0f);
}

TEST(PinPlacement, OfARingTheyStandAllAround)
{
    auto const section = sectionOf({circle(30, 64), circle(18, 64, true)});
    auto const positions = positionsOn(*section, {});
    // About 150 mm of centre line.
    EXPECT_GE(positions.size(), 20u);
    int inQuadrant[4] = {};
    for (Point const& p : positions) {
        EXPECT_NEAR(std::hypot(p.X(), p.Y()), 24, 0.5f);
        ++inQuadrant[(p.X() > 0) + 2 * (p.Y() > 0)];
    }
    for (int const count : inQuadrant)
        EXPECT_GE(count, 4);
}

TEST(PinPlacement, OfALThereAreSomeInBothArms)
{
    auto const section = sectionOf(commonSections()[2].second);
    int inArm[2] = {};
    for (Point const& p : positionsOn(*section, {})) {
        inArm[0] += p.X() > -5;
        inArm[1] += p.Y() > -5;
    }
    EXPECT_GE(inArm[0], 3);
    EXPECT_GE(inArm[1], 3);
}

TEST(PinPlacement, OfASquareThereIsOneNearTheMiddleAndSomeInEachQuarter)
{
    auto const section = sectionOf({rectangle(-20, -20, 20, 20)});
    auto const positions = positionsOn(*section, {});
    float nearest = 100;
    int inQuarter[4] = {};
    for (Point const& p : positions) {
        nearest = std::min(nearest, float(std::hypot(p.X(), p.Y())));
        ++inQuarter[(p.X() > 0) + 2 * (p.Y() > 0)];
    }
    EXPECT_LE(nearest, 6);
    for (int const count : inQuarter)
        EXPECT_GE(count, 1);
}

TEST(PinPlacement, ASectionThatIsTooNarrowHasNone)
{
    // A hole needs 2 * (2 + 0.01 + 0.1).
    auto const narrow = sectionOf({rectangle(-50, -2.1f, 50, 2.1f)});
    EXPECT_TRUE(positionsOn(*narrow, {}).empty());
    auto const wide = sectionOf({rectangle(-50, -2.2f, 50, 2.2f)});
    EXPECT_FALSE(positionsOn(*wide, {}).empty());
}

TEST(PinPlacement, SpacingBeyondTheSectionGivesOnePosition)
{
    auto const section = sectionOf({rectangle(-20, -20, 20, 20)});
    PinHoleParas paras;
    paras.spacing = 100;
    EXPECT_EQ(positionsOn(*section, paras).size(), 1u);
    paras.isSidedis = true;
    EXPECT_EQ(positionsOn(*section, paras).size(), 1u);
}

TEST(PinPlacement, BesideAContourTheWalkBeginsWithTheFirstPointOfTheOffsetRing)
{
    auto const section = sectionOf({rectangle(-20, -20, 20, 20)});
    PinHoleParas const paras = besideContours(4);
    PlaneFrame const frame = frameOf(*planeAt({0, 0, 0}));
    auto const lines = PinPlacement(paras, frame).linesBesideContours(section->contours);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].front(), lines[0].back());
    auto const positions = positionsOn(*section, paras);
    // A square of 32 mm sides.
    EXPECT_GE(positions.size(), 20u);
    EXPECT_EQ(positions.front(), lines[0].front());
    EXPECT_GE(leastDistance(positions), 6 - 2e-3f);
    EXPECT_GE(MellMath<float>::DisPt2Pt(positions.front(), positions.back()), 6 - 1e-3f);
    for (Point const& p : positions)
        EXPECT_NEAR(distanceFrom(section->contours, p), 4, 0.003f);
}

TEST(PinPlacement, BesideTheContourOfAHoleNoneIsLeft)
{
    auto const section = sectionOf({rectangle(-30, -30, 30, 30), circle(16, 48, true)});
    auto const positions = positionsOn(*section, besideContours(4));
    EXPECT_GE(positions.size(), 30u);
    for (Point const& p : positions) {
        EXPECT_TRUE(isOn(section->cap, p));
        EXPECT_GT(std::max(std::abs(p.X()), std::abs(p.Y())), 25.9f);
    }
}

TEST(PinPlacement, ASectionNarrowerThanTwiceTheSideDistanceHasNoneBesideItsContour)
{
    auto const section = sectionOf({rectangle(-50, -4, 50, 4)});
    EXPECT_TRUE(positionsOn(*section, besideContours(4)).empty());
}

TEST(PinPlacement, OfManyContourPointsKeepsItsDistances)
{
    auto const section = sectionOf({gear(20000, 60, 4, 40)});
    ASSERT_GE(section->contours[0].size(), 20000u);
    for (bool const isSidedis : {false, true}) {
        PinHoleParas paras;
        paras.isSidedis = isSidedis;
        paras.keepClear = true;
        auto const positions = positionsOn(*section, paras);
        EXPECT_GE(positions.size(), 20u);
        EXPECT_GE(leastDistance(positions), 6 - 2e-3f);
        for (Point const& p : positions)
            EXPECT_GT(distanceFrom(section->contours, p), isSidedis ? 3.99f : 2.11f);
    }
}

TEST(PinPlacement, CanBeCancelledAtAnyPoll)
{
    auto const section = sectionOf(commonSections()[3].second);
    PlaneFrame const frame = frameOf(*planeAt({0, 0, 0}));
    for (bool const isSidedis : {false, true}) {
        PinHoleParas paras;
        paras.isSidedis = isSidedis;
        auto const pollsUntil = [&](int cancelAt) {
            int polls = 0;
            PinPlacement const placement(paras, frame, [&] {
                if (++polls == cancelAt)
                    throw Mell::AbortException("Aborting...");
            });
            EXPECT_FALSE(placement.computePositions(section->contours, &section->cap).empty());
            return polls;
        };
        int const count = pollsUntil(0);
        EXPECT_GE(count, 60);
        for (int const n : {1, 2, count / 2})
            EXPECT_THROW(pollsUntil(n), Mell::AbortException) << n;
    }
}
