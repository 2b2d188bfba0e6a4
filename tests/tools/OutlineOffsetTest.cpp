// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Rounds.h"
#include "tests/tools/ToothedPolygon.h"
#include "tools/OutlineOffset.h"
#include "tools/WoundRegion.h"

#include <gtest/gtest.h>
#include <polyclipping/clipper.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>

namespace {

using ClipperLib::Paths;
using Freecut::Curves;
using Freecut::Loops;
using Freecut::Ring;

Paths pathsOf(Loops const& loops)
{
    Paths paths;
    for (Ring const& ring : loops) {
        ClipperLib::Path& path = paths.emplace_back();
        for (UPoint3<float> const& p : ring)
            path.emplace_back(std::llround(p.X() * 1000.0), std::llround(p.Y() * 1000.0));
    }
    return paths;
}

/// The slow judge, which shares no code with what is judged.
Paths movedByClipper(Loops const& outlines, double distance)
{
    Paths paths;
    for (Ring const& ring : outlines) {
        ClipperLib::Path& path = paths.emplace_back();
        for (UPoint3<float> const& p : ring)
            path.emplace_back(std::int64_t(p.X() * 1000.0f), std::int64_t(p.Y() * 1000.0f));
    }
    ClipperLib::ClipperOffset offset(2.0, 0.25);
    offset.AddPaths(paths, ClipperLib::jtRound, ClipperLib::etClosedPolygon);
    offset.Execute(paths, double(std::int64_t(distance * 1000.0)));
    return paths;
}

double lengthOf(Paths const& paths)
{
    double length = 0;
    for (ClipperLib::Path const& path : paths)
        for (std::size_t i = 0; i < path.size(); ++i) {
            ClipperLib::IntPoint const &p = path[i], &q = path[(i + 1) % path.size()];
            length += std::hypot(double(q.X - p.X), double(q.Y - p.Y));
        }
    return length;
}

double areaOf(Paths const& paths)
{
    double area = 0;
    for (ClipperLib::Path const& path : paths)
        area += ClipperLib::Area(path);
    return area;
}

/// What lies in one of two regions alone is at most a band of 0.0006 mm along their outlines.
void expectSameRegion(Loops const& outlines, double distance)
{
    std::optional<Loops> const moved =
        Freecut::OutlineOffset(outlines, {topCamera(), 0}).moved(distance);
    ASSERT_TRUE(moved.has_value());
    Paths const ours = pathsOf(*moved), judged = movedByClipper(outlines, distance);
    Paths difference;
    ClipperLib::Clipper clipper;
    clipper.AddPaths(ours, ClipperLib::ptSubject, true);
    clipper.AddPaths(judged, ClipperLib::ptClip, true);
    clipper.Execute(ClipperLib::ctXor, difference, ClipperLib::pftNonZero, ClipperLib::pftNonZero);
    EXPECT_LE(areaOf(difference), 0.6 * (lengthOf(ours) + lengthOf(judged)) + 10);
}

Freecut::Curve square(double low, double high)
{
    return {{low, low}, {high, low}, {high, high}, {low, high}};
}

Freecut::Curve reversed(Freecut::Curve curve)
{
    std::reverse(curve.begin(), curve.end());
    return curve;
}

double areaOf(Curves const& curves)
{
    double area = 0;
    for (Freecut::Curve const& curve : curves)
        for (std::size_t i = 0; i < curve.size(); ++i) {
            auto const &p = curve[i], &q = curve[(i + 1) % curve.size()];
            area += (p.X() * q.Y() - q.X() * p.Y()) / 2;
        }
    return area;
}

Curves wound(Curves const& curves)
{
    return Freecut::outlineOfWoundRegion(curves, 1000).value();
}

}  // namespace

TEST(WoundRegion, IsWhereCurvesWindAtLeastOnce)
{
    // Each pair: curves, and the area of the region.
    std::vector<std::pair<Curves, double>> const cases{
        {{square(0, 10)}, 100},
        {{reversed(square(0, 10))}, 0},
        {{square(0, 10), square(5, 15)}, 175},
        {{square(0, 10), square(20, 30)}, 200},
        {{square(0, 10), square(2, 4)}, 100},
        {{square(0, 10), reversed(square(2, 4))}, 96},
        {{square(0, 10), reversed(square(2, 4)), square(1, 5)}, 100},
        {{square(0, 10), reversed(square(5, 15))}, 75},
        // Touching and covering each other.
        {{square(0, 10), square(0, 10)}, 100},
        {{square(0, 10), reversed(square(0, 10))}, 0},
        {{square(0, 10), square(10, 20)}, 200},
        {{square(0, 10), {{10, 0}, {20, 0}, {20, 10}, {10, 10}}}, 200},
    };
    for (auto const& [curves, area] : cases)
        EXPECT_NEAR(areaOf(wound(curves)), area, 0.05) << &curves - &cases[0].first;
}

TEST(WoundRegion, OfAFigureEightIsTheLobeThatRunsAnticlockwise)
{
    Curves const eight{{{0, 0}, {10, 10}, {10, 0}, {0, 10}}};
    Curves const lobe = wound(eight);
    ASSERT_EQ(lobe.size(), 1u);
    EXPECT_NEAR(areaOf(lobe), 25, 0.01);
}

TEST(WoundRegion, HolesRunClockwise)
{
    Curves const ring = wound({square(0, 10), reversed(square(2, 4))});
    ASSERT_EQ(ring.size(), 2u);
    EXPECT_GT(areaOf({ring[0]}), 0);
    EXPECT_LT(areaOf({ring[1]}), 0);
}

TEST(WoundRegion, GivesUpBeyondTheCrossingsWanted)
{
    Curves const crossing{square(0, 10), square(5, 15)};
    EXPECT_FALSE(Freecut::outlineOfWoundRegion(crossing, 1).has_value());
    EXPECT_TRUE(Freecut::outlineOfWoundRegion(crossing, 2).has_value());
}

TEST(OutlineOffset, OfTeethIsTheJudges)
{
    std::size_t number = 0;
    for (int const style : {0, 1, 2})
        for (bool const isRounded : {false, true})
            for (double const distance : {0.1, -0.1, 0.25, -0.25}) {
                if (!isTried(number++))
                    continue;
                SCOPED_TRACE(testing::Message() << style << isRounded << distance);
                int const count = isRounded ? 20 : 100;
                expectSameRegion(ToothedPolygon::strip(style, count, 0).source(isRounded),
                                 distance);
                expectSameRegion(ToothedPolygon::strip(style, count, 0.3).source(isRounded),
                                 distance);
                expectSameRegion(ToothedPolygon::round(style, count / 5).source(isRounded),
                                 distance);
            }
}

TEST(OutlineOffset, OfManyTeethIsTheJudges)
{
    for (int const style : {0, 1, 2})
        for (double const distance : {0.1, -0.1, 0.25, -0.25}) {
            SCOPED_TRACE(testing::Message() << style << ' ' << distance);
            Loops const source = ToothedPolygon::strip(style, rounds(60), 0.3).source(true);
            expectSameRegion(source, distance);
        }
}

TEST(OutlineOffset, OfAnythingIsTheJudges)
{
    // Stars, gears, scribbles, and scribbles on a coarse grid, which touch and cover themselves and
    // turn back. Many are gone when they are moved inward, or have become a disk outward.
    std::mt19937 random(7);
    auto const uniform = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    for (int run = 0; run < rounds(400); ++run) {
        int const kind = run % 4, count = 3 + int(random() % (run % 20 ? 25 : 150));
        double const size = std::pow(10, uniform(-0.5, 2));
        Ring corners;
        for (int i = 0; i < count; ++i) {
            double const angle = 2 * M_PI * i / count, step = size / 8;
            double const radius = kind == 0 ? uniform(0.3, 1) : i % 2 ? 1 : 0.9;
            if (kind < 2)
                corners.push_back({float(size * radius * std::cos(angle)),
                                   float(size * radius * std::sin(angle)), 0});
            else if (kind == 2)
                corners.push_back({float(uniform(-size, size)), float(uniform(-size, size)), 0});
            else
                corners.push_back({float(std::round(uniform(-8, 8)) * step),
                                   float(std::round(uniform(-8, 8)) * step), 0});
        }
        double const distance = kind == 3 && run % 8 == 3
                                    ? size / 16
                                    : std::max(size * std::pow(10, uniform(-3, 0)), 0.001);
        for (bool const isRounded : {false, true}) {
            ToothedPolygon polygon(corners);
            Loops const outlines = polygon.source(isRounded);
            for (double const way : {distance, -distance}) {
                SCOPED_TRACE(testing::Message() << run << ' ' << isRounded << ' ' << way);
                if (!outlines.empty())
                    expectSameRegion(outlines, way);
            }
        }
    }
}

TEST(OutlineOffset, IsTheSameEachTime)
{
    Loops const outlines = ToothedPolygon::round(2, 12).source(true);
    GLCamera const camera = topCamera();
    Freecut::OutlineOffset const offset(outlines, {camera, 0});
    EXPECT_EQ(offset.moved(0.25).value(), offset.moved(0.25).value());
    EXPECT_EQ(offset.moved(-0.25).value(),
              Freecut::OutlineOffset(outlines, {camera, 0}).moved(-0.25).value());
}

TEST(OutlineOffset, DrawableTeethAreNeverRefused)
{
    // On a level edge all teeth stand at one height, and roundings give each a hundred points.
    for (int const style : {0, 1, 2})
        for (float const clearance : {0.1f, 0.25f}) {
            ToothedPolygon polygons[] = {ToothedPolygon::strip(style, rounds(300), 0),
                                         ToothedPolygon::strip(style, rounds(300), 0.3),
                                         ToothedPolygon::round(style, 60)};
            for (ToothedPolygon& polygon : polygons) {
                Freecut::ToolOutlines const& outlines = polygon.update(true, clearance);
                EXPECT_EQ(outlines.problem, "");
                EXPECT_FALSE(outlines.innerLoops.empty());
                EXPECT_FALSE(outlines.outerLoops.empty());
            }
        }
}
