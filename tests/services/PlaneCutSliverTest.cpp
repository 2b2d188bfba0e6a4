// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/SectionTriangulation.h"
#include "tests/services/CutFamilies.h"
#include "tests/support/PieceRules.h"

#include <gtest/gtest.h>

#include <cmath>

// Two triangles in a plane, the one with a corner at the other's, as near as 6e-17: between the
// sides from there lies less than the rounding of the point in which one of them is crossed further
// off.
namespace {

using Exact::SectionPoint2;
using Exact::SectionSegment;

std::vector<SectionPoint2> corners()
{
    return {{0, 0}, {1.7320507764816284, 1}, {0, 2}, {6e-17f, 0}, {1, 0}, {1, 1.5}};
}

double areaOf(std::vector<SectionPoint2> const& p, std::array<std::uint32_t, 3> const& t)
{
    auto const& [a, b, c] = t;
    return 0.5 *
           ((p[b][0] - p[a][0]) * (p[c][1] - p[a][1]) - (p[b][1] - p[a][1]) * (p[c][0] - p[a][0]));
}

double distanceTo(std::vector<SectionPoint2> const& p, SectionSegment const& s, std::uint32_t point)
{
    double const length = std::hypot(p[s.to][0] - p[s.from][0], p[s.to][1] - p[s.from][1]);
    return std::abs(2 * areaOf(p, {s.from, s.to, point})) / length;
}

/// An upright prism over a ring, with a tip over the middle of either end; a tip at the height of
/// its end leaves that flat.
struct Spindle
{
    std::vector<std::pair<float, float>> ring;
    UPoint3<float> lowTip, highTip;
    float low, high;

    void appendTo(Soup& soup) const
    {
        auto const count = std::uint32_t(ring.size());
        auto const first = std::uint32_t(soup.points.size());
        for (float const z : {low, high})
            for (auto const& [x, y] : ring)
                soup.add({x, y, z});
        std::uint32_t const tipBelow = soup.add(lowTip), tipAbove = soup.add(highTip);
        for (std::uint32_t i = 0; i < count; ++i) {
            std::uint32_t const a = first + i, b = first + (i + 1) % count;
            soup.add(a, b, b + count);
            soup.add(a, b + count, a + count);
        }
        for (std::uint32_t i = 0; i < count; ++i) {
            std::uint32_t const a = first + i, b = first + (i + 1) % count;
            soup.add(tipBelow, b, a);
            soup.add(tipAbove, a + count, b + count);
        }
    }
};

/// The tips and two edges of the one lie in the plane y = 1. It stands with a tip on the ground of
/// the other, beside the point in which an edge of that comes through the plane.
Soup spindleInBlock()
{
    float const width = 1.7320507764816284f, half = 0.8660253882408142f, noise = 6e-17f;
    Soup soup;
    Spindle{{{width, 1}, {half, 2.5f}, {-half, 2.5f}, {-width, 1}, {-half, -0.5f}, {half, -0.5f}},
            {0, 1, 0},
            {0, 1, 4},
            1,
            3}
        .appendTo(soup);
    Spindle{{{2, 0}, {2 * noise, 2}, {-2, 4 * noise}, {-6 * noise, -2}}, {0, 0, 0}, {0, 0, 3}, 0, 3}
        .appendTo(soup);
    return soup;
}

}  // namespace

TEST(PlaneCutSliver, SegmentsAreSplitOnPointsThatLieOnThem)
{
    auto points = corners();
    std::vector<SectionSegment> segments{{0, 1}, {1, 2}, {2, 0}, {3, 4}, {4, 5}, {5, 3}};
    double const area = areaOf(points, {0, 1, 2}) + areaOf(points, {3, 4, 5});
    auto const filling = Exact::fillSection(points, segments, {});
    std::size_t splits = 0;
    for (SectionSegment const& segment : segments)
        for (std::uint32_t const point : segment.splits) {
            ASSERT_LT(point, points.size());
            EXPECT_LT(distanceTo(points, segment, point), 1e-9);
            ++splits;
        }
    EXPECT_GE(splits, 8u);
    EXPECT_EQ(filling.layers, 2);
    double filled = 0;
    for (auto const& t : filling.triangles)
        filled += areaOf(points, t);
    EXPECT_NEAR(filled, area, 1e-9);
}

TEST(PlaneCutSliver, PiecesWindAsThePartDoes)
{
    Soup const part = spindleInBlock();
    judge::Source const source(part);
    auto const outcome = cut(part, {0, 1, 2}, {0, 1, 0});
    judge::Rule const rule = judge::planeRule({{0, 1, 2}, {0, 1, 0}}, source.margin());
    auto const faults =
        judge::faultsOf(source, {soupOf(outcome->above), soupOf(outcome->below)}, rule, 500);
    EXPECT_EQ(faults.wrong + faults.open, "");
}
