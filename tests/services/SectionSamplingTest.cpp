// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/geometry/UPoint2.h"
#include "tests/services/CutFamilies.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

namespace {

UVector3<float> const up(0, 0, 1);

/// The edges of a mesh that only one triangle has.
std::vector<std::pair<std::uint32_t, std::uint32_t>> borderOf(Soup const& soup)
{
    std::map<std::pair<std::uint32_t, std::uint32_t>, int> uses;
    for (auto const& t : soup.triangles)
        for (std::size_t i = 0; i < 3; ++i) {
            uses[{t[i], t[(i + 1) % 3]}] += 1;
            uses[{t[(i + 1) % 3], t[i]}] -= 1;
        }
    std::vector<std::pair<std::uint32_t, std::uint32_t>> border;
    for (auto const& [edge, count] : uses)
        if (count > 0)
            border.push_back(edge);
    return border;
}

double longestBorderEdge(Soup const& soup)
{
    double longest = 0;
    for (auto const& [a, b] : borderOf(soup))
        longest = std::max(longest, double((soup.points[a] - soup.points[b]).GetLength()));
    return longest;
}

std::size_t borderPoints(Soup const& soup)
{
    std::vector<bool> isOnBorder(soup.points.size(), false);
    for (auto const& [a, b] : borderOf(soup))
        isOnBorder[a] = isOnBorder[b] = true;
    return std::size_t(std::count(isOnBorder.begin(), isOnBorder.end(), true));
}

}  // namespace

TEST(SectionSampling, LongEdgesOfASectionAreDividedByItsMeanWidth)
{
    struct Row
    {
        Soup soup;
        double step;
    };
    for (auto const& [soup, step] : {Row{box(40, 40, 10), 20.0 / 4},
                                     {box(100, 10, 10), 2000.0 / 220 / 4},
                                     {box(60, 1, 10), 0.5}}) {
        auto const outcome = cut(soup, {0, 0, 4}, up);
        Soup const section = soupOf(outcome->section);
        EXPECT_LE(longestBorderEdge(section), step + 1e-4);
        EXPECT_GT(longestBorderEdge(section), step / 2);
        EXPECT_EQ(borderPoints(section), section.points.size());
    }
}

TEST(SectionSampling, TheHalvesGetNoneOfThePoints)
{
    auto const outcome = cut(box(40, 40, 10), {0, 0, 4}, up);
    // A corner at each end of four upright edges, and a point where each diagonal is cut.
    EXPECT_EQ(soupOf(outcome->above).points.size(), 4u + 8u);
    EXPECT_EQ(soupOf(outcome->below).points.size(), 4u + 8u);
    EXPECT_EQ(closedSolidFaults(outcome->above), "");
}

TEST(SectionSampling, AreaFacingAndBorderStayThoseOfTheCut)
{
    for (auto const& [name, soup] : closedMeshes())
        for (NamedPlane const& plane : planesAcross(soup)) {
            SCOPED_TRACE(name + " " + plane.name);
            auto const outcome = cut(soup, plane.centre, plane.normal);
            Soup const section = soupOf(outcome->section);
            double const area = areaOf(section);
            // The sampled halves differ by the section's two sides, up to the rounding of points.
            double const caps = 0.5 * (areaOf(soupOf(outcome->above)) +
                                       areaOf(soupOf(outcome->below)) - areaOf(soup));
            if (!section.triangles.empty()) {
                EXPECT_NEAR(area, caps, 1e-4 * areaOf(soup)) << area;
            }
            auto const vectorArea = vectorAreaOf(section);
            EXPECT_NEAR(vectorArea.GetLength(), area, 1e-4 * area + 1e-6);
        }
}

TEST(SectionSampling, ALongThinSectionStaysWithinReason)
{
    auto const outcome = cut(box(4000, 0.01f, 10), {0, 0, 4}, up);
    EXPECT_LE(outcome->section.readMesh()->vertices.size(), 17000u);
    auto const huge = cut(box(100000, 0.01f, 10), {0, 0, 4}, up);
    EXPECT_LE(huge->section.readMesh()->vertices.size(), 20100u);
}

TEST(SectionSampling, EachFaceIsDividedByItsOwnWidth)
{
    Soup soup = box(40, 40, 10);
    soup.append(box(100, 4, 10, {50, 0, 0}));
    Soup const section = soupOf(cut(soup, {0, 0, 4}, up)->section);
    double longest[2] = {};
    for (auto const& [a, b] : borderOf(section)) {
        double& length = longest[section.points[a].X() > 45];
        length = std::max(length, double((section.points[a] - section.points[b]).GetLength()));
    }
    // The side is parted where the wall's diagonal is cut, 24 mm along.
    EXPECT_NEAR(longest[0], 24.0 / 5, 1e-3);
    EXPECT_LE(longest[1], 800.0 / 208 / 4 + 1e-4);
}

TEST(SectionSampling, TheSameCutGivesTheSameSection)
{
    Soup const soup = torus(20, 6, 24, 10);
    auto const first = cut(soup, {0, 0, 0.3f}, {0.2f, 0.1f, 1});
    auto const second = cut(soup, {0, 0, 0.3f}, {0.2f, 0.1f, 1});
    EXPECT_EQ(bytesOf(first->section), bytesOf(second->section));
}

TEST(SectionSampling, PointsThatDifferByLessThanTheAxesHoldAreOne)
{
    // A prism whose outline has two corners 1e-20 apart: different numbers beside the plane's axis,
    // the same on the axes of a tilted plane.
    std::vector<UPoint2<float>> const outline = {{0, 0}, {8, 0}, {8, 5}, {1e-20f, 5}, {0, 5}};
    Soup prism;
    for (float const z : {-20.0f, 20.0f})
        for (UPoint2<float> const& p : outline)
            prism.points.push_back({p.X(), p.Y(), z});
    std::uint32_t const n = std::uint32_t(outline.size());
    for (std::uint32_t i = 0; i < n; ++i) {
        std::uint32_t const next = (i + 1) % n;
        prism.triangles.push_back({i, next, n + next});
        prism.triangles.push_back({i, n + next, n + i});
        if (i > 0 && i + 1 < n) {
            prism.triangles.push_back({0, i + 1, i});
            prism.triangles.push_back({n, n + i, n + i + 1});
        }
    }
    auto const outcome = cut(prism, {0, 0, 0}, {1, 2, 3});
    EXPECT_NEAR(areaOf(soupOf(outcome->section)), 8 * 5 * std::sqrt(14.0) / 3, 1e-3);
}
