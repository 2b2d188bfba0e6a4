// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/WideLines.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <numbers>
#include <utility>

namespace {

using Points = std::vector<UPoint3<float>>;

constexpr QSize viewSize(400, 300);
constexpr float lineWidth = 2;

/// A closed line in clip space, which is the picture from -1 to 1.
Points circle(int lines, float radius, UPoint3<float> const& middle = {})
{
    auto const at = [&](int i) {
        double const angle = 2 * std::numbers::pi * (i % lines) / lines;
        return UPoint3<float>(middle.X() + radius * float(std::cos(angle)),
                              middle.Y() + radius * float(std::sin(angle)), 0);
    };
    Points points;
    for (int i = 0; i < lines; ++i) {
        points.push_back(at(i));
        points.push_back(at(i + 1));
    }
    return points;
}

Points drawn(Points const& points)
{
    return wideLines(points, QMatrix4x4(), viewSize, lineWidth, false);
}

std::size_t countOf(Points const& triangles)
{
    return triangles.size() / 6;
}

/// Its middle at the ends of a line, in steps that are far less than a pixel.
std::pair<int, int> endOf(UPoint3<float> const& one, UPoint3<float> const& other)
{
    auto const step = [](float a, float b) { return int(std::lround(1e5 * (a + b) / 2)); };
    return {step(one.X(), other.X()), step(one.Y(), other.Y())};
}

}  // namespace

TEST(WideLines, OfACurveThatIsFinerThanThePixelsAreFew)
{
    // 250 pixels long.
    Points const triangles = drawn(circle(20000, 0.25f));
    EXPECT_LT(countOf(triangles), 500u);
    EXPECT_GT(countOf(triangles), 100u);
    for (UPoint3<float> const& p : triangles)
        EXPECT_NEAR(std::hypot(p.X(), p.Y()), 0.25, 2 * lineWidth / viewSize.height());
}

TEST(WideLines, OfAFineCurveStillMeet)
{
    Points const triangles = drawn(circle(20000, 0.25f));
    std::map<std::pair<int, int>, int> ends;
    for (std::size_t i = 0; i + 5 < triangles.size(); i += 6) {
        ++ends[endOf(triangles[i], triangles[i + 2])];
        ++ends[endOf(triangles[i + 1], triangles[i + 5])];
    }
    for (auto const& [end, count] : ends)
        EXPECT_GE(count, 2) << end.first << ' ' << end.second;
}

TEST(WideLines, KeepADotOfACurveWithinAPixel)
{
    Points points = circle(20000, 0.25f);
    std::size_t const without = countOf(drawn(points));
    // The middle of a pixel far from the curve.
    Points const small = circle(1000, 0.0005f, {160.5f / 200, 120.5f / 150, 0});
    points.insert(points.end(), small.begin(), small.end());
    EXPECT_EQ(countOf(drawn(points)), without + 1);
}

TEST(WideLines, ThatAreFewAreAllDrawn)
{
    EXPECT_EQ(countOf(drawn(circle(900, 0.01f))), 900u);
}

TEST(WideLines, OutsideThePictureAreLeftAsTheyAre)
{
    EXPECT_EQ(countOf(drawn(circle(20000, 0.25f, {3, 0, 0}))), 20000u);
}
