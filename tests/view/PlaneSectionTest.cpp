// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PlaneSection.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<double>;

PlaneSection sectionOf(MeshKernel const& kernel, ViewPlane const& plane)
{
    return PlaneSection(PickTree(kernel), *kernel.readMesh(), plane);
}

/// Where triangles overlap the other way round they cancel out.
double areaOf(std::vector<Point> const& triangles)
{
    Vector twice;
    for (std::size_t i = 0; i + 2 < triangles.size(); i += 3) {
        auto const edge = [&](std::size_t k) {
            UVector3<float> const v = triangles[i + k] - triangles[i];
            return Vector(v.X(), v.Y(), v.Z());
        };
        twice += edge(1) * edge(2);
    }
    return twice.GetLength() / 2;
}

double length(std::vector<Point> const& lines)
{
    double sum = 0;
    for (std::size_t i = 0; i + 1 < lines.size(); i += 2)
        sum += (lines[i + 1] - lines[i]).GetLength();
    return sum;
}

/// The length by all triangles, one by one, by way of the corners' heights.
double slowLength(MeshKernel const& kernel, ViewPlane const& plane)
{
    double sum = 0;
    for (UTriangle<float> const* const t : kernel.readMesh()->triangles) {
        std::vector<Vector> ends;
        for (int i = 0; i < 3; ++i) {
            Point const p = t->cP(i), q = t->cP((i + 1) % 3);
            double const a = plane.heightOf(p), b = plane.heightOf(q);
            if ((a >= 0) == (b >= 0))
                continue;
            Vector const from(p.X(), p.Y(), p.Z()), to(q.X(), q.Y(), q.Z());
            ends.push_back(from * (-b / (a - b)) + to * (a / (a - b)));
        }
        if (ends.size() == 2)
            sum += (ends[1] - ends[0]).GetLength();
    }
    return sum;
}

}  // namespace

TEST(PlaneSections, HaveTheLengthThatAllTrianglesGiveOneByOne)
{
    std::mt19937 random(3);
    std::uniform_real_distribution<double> number(-1, 1);
    for (NamedSoup const& named : closedMeshes()) {
        if (named.soup.triangles.empty())
            continue;
        auto const kernel = kernelOf(named.soup);
        kernel->UpdateBoundingBox();
        UBox3<float> const box = kernel->GetBox();
        Point const middle = (box.min + box.max) * 0.5f;
        for (int i = 0; i < 5; ++i) {
            UVector3<float> const normal(float(number(random)), float(number(random)),
                                         float(number(random)));
            ViewPlane const plane = planeThrough(middle, normal);
            PlaneSection const section = sectionOf(*kernel, plane);
            double const expected = slowLength(*kernel, plane);
            EXPECT_NEAR(length(section.lines()), expected, 1e-5 * expected) << named.name;
            EXPECT_EQ(section.openLines(), 0u) << named.name;
        }
    }
}

TEST(PlaneSections, EncloseTheAreaOfTheSolid)
{
    auto const areaAt = [](Soup const& soup, double height) {
        return areaOf(sectionOf(*kernelOf(soup), {{0, 0, 1}, height}).areas());
    };
    // Lines run so that outer and inner ones turn against each other.
    EXPECT_NEAR(areaAt(box(40, 30, 20), 7), 1200, 1e-3);
    double const slice = std::sin(2 * M_PI / 48) / 2 * 48;
    EXPECT_NEAR(areaAt(tube(20, 10, 30, 48), 11), slice * (400 - 100), 1e-2);
    EXPECT_NEAR(areaAt(openBox(40, 30, 20), 7), 1200, 1e-3);
    EXPECT_EQ(areaAt(box(40, 30, 20), 21), 0);
}

TEST(PlaneSections, CountAVertexOnThePlaneAsAboveIt)
{
    auto const kernel = kernelOf(box(40, 30, 20));
    EXPECT_TRUE(sectionOf(*kernel, {{0, 0, 1}, 0}).isEmpty());
    EXPECT_NEAR(length(sectionOf(*kernel, {{0, 0, 1}, 20}).lines()), 140, 1e-3);
    EXPECT_TRUE(sectionOf(*kernel, {{0, 0, -1}, -20}).isEmpty());
}

TEST(PlaneSections, JoinTrianglesThatShareNoVertices)
{
    Soup loose;
    Soup const joined = tube(20, 10, 30, 48);
    for (auto const& corners : joined.triangles) {
        std::uint32_t const first = std::uint32_t(loose.points.size());
        for (int k = 0; k < 3; ++k)
            loose.points.push_back(joined.points[corners[k]]);
        loose.triangles.push_back({first, first + 1, first + 2});
    }
    PlaneSection const section = sectionOf(*kernelOf(loose), {{0, 0, 1}, 11});
    EXPECT_EQ(section.openLines(), 0u);
    double const slice = std::sin(2 * M_PI / 48) / 2 * 48;
    EXPECT_NEAR(areaOf(section.areas()), slice * 300, 1e-2);
}

TEST(PlaneSections, KeepTheirAreaWhereSomeTrianglesFaceTheWrongWay)
{
    Soup soup = tube(20, 10, 30, 48);
    std::mt19937 random(8);
    for (auto& corners : soup.triangles)
        if (random() % 4 == 0)
            std::swap(corners[0], corners[1]);
    double const slice = std::sin(2 * M_PI / 48) / 2 * 48;
    PlaneSection const section = sectionOf(*kernelOf(soup), {{0, 0, 1}, 11});
    EXPECT_EQ(section.openLines(), 0u);
    EXPECT_NEAR(areaOf(section.areas()), slice * 300, 1e-2);
}

TEST(PlaneSections, LeaveWideGapsOpenAndCloseNarrowOnes)
{
    // A plane along the height meets the open box in a line that lacks one of its four sides.
    PlaneSection const wide = sectionOf(*kernelOf(openBox(40, 30, 20)), {{0, 1, 0}, 15});
    EXPECT_EQ(wide.openLines(), 1u);
    EXPECT_TRUE(wide.areas().empty());
    EXPECT_NEAR(length(wide.lines()), 80, 1e-3);
    PlaneSection const narrow = sectionOf(*kernelOf(openBox(4, 30, 40)), {{0, 1, 0}, 15});
    EXPECT_EQ(narrow.openLines(), 0u);
    EXPECT_NEAR(areaOf(narrow.areas()), 160, 1e-3);
    // The line that closes the gap is no line of the section.
    EXPECT_NEAR(length(narrow.lines()), 84, 1e-3);
}

TEST(PlaneSections, GoOnAlongTheirDirectionWhereFourTrianglesMeet)
{
    // Cubes that touch along edges: lines that went on the wrong way round would fill the holes.
    for (unsigned seed : {1u, 2u, 3u}) {
        Soup const soup = randomVoxels(6, seed);
        for (double const height : {0.5, 2.5, 4.5}) {
            auto const kernel = kernelOf(soup);
            PlaneSection const section = sectionOf(*kernel, {{0, 0, 1}, height});
            EXPECT_EQ(section.openLines(), 0u);
            // Every unit square is either full or empty, so counting them gives the area.
            auto const areas = section.areas();
            double covered = 0;
            for (int x = -1; x < 8; ++x)
                for (int y = -1; y < 8; ++y) {
                    double turns = 0;
                    auto const lines = section.lines();
                    for (std::size_t i = 0; i + 1 < lines.size(); i += 2) {
                        double const ax = lines[i].X() - x - 0.5, ay = lines[i].Y() - y - 0.5;
                        double const bx = lines[i + 1].X() - x - 0.5;
                        double const by = lines[i + 1].Y() - y - 0.5;
                        turns += std::atan2(ax * by - ay * bx, ax * bx + ay * by);
                    }
                    int const winding = int(std::lround(turns / (2 * M_PI)));
                    EXPECT_TRUE(winding == 0 || std::abs(winding) == 1);
                    covered += winding;
                }
            EXPECT_NEAR(std::abs(covered), areaOf(areas), 1e-3);
        }
    }
}
