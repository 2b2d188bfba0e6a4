// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/geometry/UPoint2.h"
#include "platform/services/Intersect.h"
#include "platform/services/SolidSplit.h"
#include "tests/support/BooleanJudge.h"
#include "tests/support/MadeModels.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

using Point = UPoint3<double>;
using Vector = UVector3<double>;

Point wide(UPoint3<float> const& p)
{
    return {p.X(), p.Y(), p.Z()};
}

/// An upright prism over a convex outline that turns anticlockwise.
struct Prism
{
    std::vector<std::array<double, 2>> outline;
    double low;
    double high;

    Soup soup() const
    {
        Soup soup;
        auto const n = std::uint32_t(outline.size());
        for (double const z : {low, high})
            for (auto const& [x, y] : outline)
                soup.add({float(x), float(y), float(z)});
        for (std::uint32_t i = 0; i < n; ++i) {
            std::uint32_t const next = (i + 1) % n;
            soup.add(i, next, n + next);
            soup.add(i, n + next, n + i);
            if (i >= 2) {
                soup.add(0, i, i - 1);
                soup.add(n, n + i - 1, n + i);
            }
        }
        return soup;
    }
};

/// The length of a part's section by one wall of a prism, in plain arithmetic: each triangle against
/// the wall's plane, and the piece of line against the wall's upright ends.
double sectionLength(Soup const& part, Prism const& prism, std::size_t wall)
{
    std::array<double, 2> const& a = prism.outline[wall];
    std::array<double, 2> const& b = prism.outline[(wall + 1) % prism.outline.size()];
    double const width = std::hypot(b[0] - a[0], b[1] - a[1]);
    auto const across = [&](Point const& p) {
        return ((b[0] - a[0]) * (p.Y() - a[1]) - (b[1] - a[1]) * (p.X() - a[0])) / width;
    };
    auto const along = [&](Point const& p) {
        return ((b[0] - a[0]) * (p.X() - a[0]) + (b[1] - a[1]) * (p.Y() - a[1])) / width;
    };
    double length = 0;
    for (auto const& triangle : part.triangles) {
        std::vector<Point> ends;
        for (std::size_t k = 0; k < 3; ++k) {
            Point const p = wide(part.points[triangle[k]]);
            Point const q = wide(part.points[triangle[(k + 1) % 3]]);
            double const from = across(p), to = across(q);
            if ((from < 0) != (to < 0))
                ends.push_back(p + (q - p) * (from / (from - to)));
        }
        if (ends.size() != 2)
            continue;
        double from = 0, to = 1;
        double const first = along(ends[0]), second = along(ends[1]);
        for (double const limit : {0.0, width}) {
            double const share = (limit - first) / (second - first);
            bool const isLow = limit == 0;
            if (first == second)
                to = first < 0 || first > width ? from : to;
            else if ((second > first) == isLow)
                from = std::max(from, share);
            else
                to = std::min(to, share);
        }
        length += std::max(to - from, 0.0) * (ends[1] - ends[0]).GetLength();
    }
    return length;
}

double lengthOf(ContourLines const& lines)
{
    double length = 0;
    for (auto const& [a, b] : lines)
        length += (wide(b) - wide(a)).GetLength();
    return length;
}

Prism polygonPrism(UPoint2<float> const& centre, double radius, int corners, double low,
                   double high)
{
    Prism prism{{}, low, high};
    for (int i = 0; i < corners; ++i) {
        double const angle = 0.3 + 2 * std::numbers::pi * i / corners;
        prism.outline.push_back(
            {centre.X() + radius * std::cos(angle), centre.Y() + radius * std::sin(angle)});
    }
    return prism;
}

std::vector<NamedSoup> parts()
{
    return {{"ball", sphere(10, 24, 36)},
            {"ring", torus(20, 6, 60, 24)},
            {"lattice", lattice(2)},
            {"plate", mechanicalPlate()},
            {"head", scannedHead(40)}};
}

UBox3<float> boxOf(Soup const& soup)
{
    UBox3<float> found;
    for (auto const& p : soup.points)
        found.Add(p);
    return found;
}

}  // namespace

TEST(SolidSplit, ItsLinesAreTheSectionsByTheWallsOfTheTool)
{
    for (auto const& [name, soup] : parts()) {
        SCOPED_TRACE(name);
        UBox3<float> const box = boxOf(soup);
        float const width = box.MaxX() - box.MinX();
        // Off the middle, right through the part and beyond both its ends.
        Prism const prism =
            polygonPrism({(box.MinX() + box.MaxX()) / 2 + 0.1317f * width,
                          (box.MinY() + box.MaxY()) / 2 + 0.0471f * width},
                         0.27 * double(width), 5, double(box.MinZ()) - 1, double(box.MaxZ()) + 1);
        Soup const tool = prism.soup();
        MeshKernel inside, outside;
        ContourLines const lines =
            splitWithContours(*kernelOf(soup), *kernelOf(tool), &inside, &outside, {});
        double expected = 0;
        for (std::size_t wall = 0; wall < prism.outline.size(); ++wall)
            expected += sectionLength(soup, prism, wall);
        ASSERT_GT(expected, double(width));
        EXPECT_NEAR(lengthOf(lines), expected, 1e-5 * expected);
        for (std::size_t i = 0; i < lines.size(); i += 1 + lines.size() / 100)
            for (auto const& end : lines[i]) {
                EXPECT_LT(distanceFrom(soup, wide(end)), 1e-4);
                EXPECT_LT(distanceFrom(tool, wide(end)), 1e-4);
            }
    }
}

TEST(SolidSplit, OfAToolThatEndsWithinThePartAreThoseOfItsEndToo)
{
    // A bore of 4 x 4 mm that ends at half the height of a block: one square at its mouth.
    MeshKernel inside, outside;
    Prism const bore{{{-2, -2}, {2, -2}, {2, 2}, {-2, 2}}, 5, 20};
    ContourLines const lines = splitWithContours(*kernelOf(box(20, 20, 10, {-10, -10, 0})),
                                                 *kernelOf(bore.soup()), &inside, &outside, {});
    EXPECT_NEAR(lengthOf(lines), 16, 1e-5);
    for (auto const& line : lines)
        for (auto const& end : line)
            EXPECT_EQ(end.Z(), 10);
}

TEST(SolidSplit, PiecesAreThoseOfTheCutToTheLastBit)
{
    for (auto const& [name, soup] : parts()) {
        SCOPED_TRACE(name);
        UBox3<float> const box = boxOf(soup);
        auto const part = kernelOf(soup);
        auto const tool =
            kernelOf(polygonPrism({box.MaxX(), box.MaxY()}, 0.6 * double(box.MaxX() - box.MinX()),
                                  7, double(box.MinZ()) - 1, double(box.MaxZ()) + 1)
                         .soup());
        MeshKernel first, second, inside, outside;
        Intersect::boolean_subtract_keep(part.get(), tool.get(), &first, &second, {}, 1);
        splitWithContours(*part, *tool, &inside, &outside, {});
        for (auto const& [a, b] : {std::pair(&first, &inside), {&second, &outside}}) {
            EXPECT_EQ(soupOf(*a).points, soupOf(*b).points);
            EXPECT_EQ(soupOf(*a).triangles, soupOf(*b).triangles);
        }
        // One of the pieces alone is the same, and has the same lines.
        MeshKernel alone, common;
        std::vector<MeshKernel*> out{&common};
        Intersect::boolean(part.get(), tool.get(), out, Intersect::BOOLEAN_INTERSECT, {}, 1);
        ContourLines const lines = splitWithContours(*part, *tool, &alone, nullptr, {});
        EXPECT_EQ(soupOf(alone).points, soupOf(common).points);
        EXPECT_GT(lengthOf(lines), 0);
    }
}

TEST(SolidSplit, WhereTheSurfacesDoNotMeetThereAreNoLines)
{
    auto const block = kernelOf(box(10, 10, 10));
    MeshKernel inside, outside;
    EXPECT_TRUE(
        splitWithContours(*block, *kernelOf(box(5, 5, 5, {20, 0, 0})), &inside, &outside, {})
            .empty());
    EXPECT_TRUE(inside.readMesh()->triangles.empty());
    EXPECT_EQ(outside.readMesh()->triangles.size(), 12u);
    // A tool within the part makes a cavity, whose surface nowhere meets the part's.
    MeshKernel within, without;
    EXPECT_TRUE(splitWithContours(*block, *kernelOf(box(2, 2, 2, {4, 4, 4})), &within, &without, {})
                    .empty());
    EXPECT_EQ(without.readMesh()->triangles.size(), 24u);
}

TEST(SolidSplit, APartWithAMatrixHasItsLinesWhereItStands)
{
    auto part = kernelOf(box(10, 10, 10));
    part->getMatrix()(0, 3) = 100;
    MeshKernel inside, outside;
    Prism const tool{{{105, -1}, {120, -1}, {120, 11}, {105, 11}}, -1, 11};
    ContourLines const lines =
        splitWithContours(*part, *kernelOf(tool.soup()), &inside, &outside, {});
    EXPECT_NEAR(lengthOf(lines), 40, 1e-4);
    for (auto const& line : lines)
        for (auto const& end : line)
            EXPECT_EQ(end.X(), 105);
}
