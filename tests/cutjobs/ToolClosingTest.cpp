// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/ToolClosing.h"
#include "platform/jobs/Exceptions.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"
#include "tools/PrismMesh.h"
#include "tools/ToolOutlines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

using Freecut::Ring;
using Vector = UVector3<float>;

std::unique_ptr<MeshKernel> prism(Ring const& top, Vector const& direction)
{
    auto mesh = std::make_unique<UMesh<float>>();
    Freecut::fillWithPrisms(*mesh, {top}, Freecut::translated({top}, -direction), direction);
    return std::make_unique<MeshKernel>(mesh.release());
}

/// What the validator says of a mesh whose points are joined by their places.
std::string faultsOf(MeshKernel const& kernel)
{
    Soup soup = soupOf(kernel);
    soup.joinPoints();
    return closedSolidFaults(soup);
}

/// A rectangle with points that stand twice, as rounding leaves them: the ears run out.
Ring const doubled{{0, 0, 10}, {2, 0, 10}, {2, 0, 10}, {4, 0, 10}, {4, 3, 10},
                   {2, 3, 10}, {2, 3, 10}, {0, 3, 10}, {0, 1, 10}, {0, 1, 10}};

}  // namespace

TEST(ToolClosing, APrismWhoseEarsRanOutGetsItsCaps)
{
    for (Vector const& direction : {Vector(0, 0, 10), Vector(3, -1, 10)}) {
        auto const tool = prism(doubled, direction);
        ASSERT_NE(faultsOf(*tool), "");
        closeTool(*tool);
        EXPECT_EQ(faultsOf(*tool), "");
        EXPECT_NEAR(volumeOf(soupOf(*tool)), 120, 1e-4);
    }
}

TEST(ToolClosing, OpeningsOfEveryDirectionAreFilledInTheirPlane)
{
    Soup const solid = box(2, 3, 4);
    for (int axis = 0; axis < 3; ++axis)
        for (bool const isUpper : {false, true}) {
            float const end = isUpper ? float(axis + 2) : 0.0f;
            Soup open = solid;
            std::erase_if(open.triangles, [&](auto const& t) {
                return solid.points[t[0]][axis] == end && solid.points[t[1]][axis] == end &&
                       solid.points[t[2]][axis] == end;
            });
            ASSERT_EQ(borderEdgesOf(open), 4u);
            auto const tool = kernelOf(open);
            closeTool(*tool);
            EXPECT_EQ(manifoldFaults(soupOf(*tool)), "") << axis;
            EXPECT_EQ(tool->readMesh()->triangles.size(), 12u) << axis;
            EXPECT_FLOAT_EQ(float(volumeOf(soupOf(*tool))), 24) << axis;
        }
}

TEST(ToolClosing, ATriangleThatIsMissingIsPutBack)
{
    for (auto const& [name, soup] : closedMeshes()) {
        Soup open = soup;
        open.triangles.erase(open.triangles.begin() + std::ptrdiff_t(open.triangles.size() / 2));
        auto const tool = kernelOf(open);
        closeTool(*tool);
        EXPECT_EQ(faultsOf(*tool), "") << name;
        EXPECT_NEAR(volumeOf(soupOf(*tool)), volumeOf(soup), 1e-3) << name;
    }
}

TEST(ToolClosing, OpeningsThatMeetInACornerAreFilledOneByOne)
{
    // Four cubes in a square, two of which, across from each other, lack their fronts: one walk along the
    // border passes the corner in the middle twice.
    Soup const solid = fromFrontView({"##", "##"});
    for (bool const isRising : {false, true}) {
        Soup open = solid;
        std::erase_if(open.triangles, [&](auto const& t) {
            double x = 0, z = 0;
            for (std::uint32_t const corner : t) {
                if (solid.points[corner].Y() != 0)
                    return false;
                x += solid.points[corner].X() / 3;
                z += solid.points[corner].Z() / 3;
            }
            return ((x > 10) == (z > 10)) == isRising;
        });
        ASSERT_EQ(borderEdgesOf(open), 8u);
        auto const tool = kernelOf(open);
        closeTool(*tool);
        EXPECT_EQ(faultsOf(*tool), "");
        EXPECT_NEAR(volumeOf(soupOf(*tool)), 4000, 1e-2);
    }
}

TEST(ToolClosing, AnOpeningWithADentOfFourCornersIsFilledWithinItsBorder)
{
    // The lowest place stands beside the dent, and a fan from there would lie over it.
    Soup const solid =
        soupOf(*prism({{0, 0, 10}, {5, 4, 10}, {10, 0, 10}, {5, 10, 10}}, {0, 0, 10}));
    Soup open = solid;
    std::erase_if(open.triangles, [&](auto const& t) {
        return solid.points[t[0]].Z() == 10 && solid.points[t[1]].Z() == 10 &&
               solid.points[t[2]].Z() == 10;
    });
    ASSERT_EQ(borderEdgesOf(open), 4u);
    auto const tool = kernelOf(open);
    closeTool(*tool);
    EXPECT_EQ(faultsOf(*tool), "");
    EXPECT_NEAR(areaOf(soupOf(*tool)), areaOf(solid), 1e-3);
    EXPECT_NEAR(volumeOf(soupOf(*tool)), 300, 1e-3);
}

TEST(ToolClosing, ALineThatGoesAndComesBackIsClosedToo)
{
    // Two triangles that meet in an edge of no opening: their other edges bound a flat sliver.
    Soup sliver;
    sliver.points = {{0, 0, 0}, {4, 0, 0}, {2, 0, 0}, {2, 3, 0}, {2, -3, 1}};
    sliver.add(0, 2, 3);
    sliver.add(2, 1, 3);
    sliver.add(1, 0, 4);
    auto const tool = kernelOf(sliver);
    closeTool(*tool);
    EXPECT_EQ(borderEdgesOf(soupOf(*tool)), 0u);
}

TEST(ToolClosing, AToolThatClosesIsLeftAsItIs)
{
    auto const tool = kernelOf(box(2, 3, 4));
    auto const before = tool->readMesh();
    closeTool(*tool);
    EXPECT_EQ(tool->readMesh(), before);
}

namespace {

/// A circle with many teeth, as a rounded outline of many points looks from afar.
Ring jaggedRing(int teeth, Vector const& u, Vector const& v)
{
    Ring ring;
    for (int i = 0; i < 2 * teeth; ++i) {
        double const angle = 3.14159265358979 * i / teeth;
        auto const radius = float(i % 2 == 0 ? 50 : 49.7);
        auto const x = radius * float(std::cos(angle)), y = radius * float(std::sin(angle));
        ring.push_back(UPoint3<float>(3, 4, 5) + u * x + v * y);
    }
    return ring;
}

/// Pairs of triangles whose boxes overlap.
std::size_t overlappingBoxes(Soup const& soup)
{
    struct Box
    {
        std::array<float, 3> low, high;
    };
    std::vector<Box> boxes;
    for (auto const& t : soup.triangles) {
        Box box;
        for (int axis = 0; axis < 3; ++axis) {
            auto const [low, high] = std::minmax(
                {soup.points[t[0]][axis], soup.points[t[1]][axis], soup.points[t[2]][axis]});
            box.low[std::size_t(axis)] = low;
            box.high[std::size_t(axis)] = high;
        }
        boxes.push_back(box);
    }
    std::size_t count = 0;
    for (std::size_t i = 0; i < boxes.size(); ++i)
        for (std::size_t j = 0; j < i; ++j) {
            bool isApart = false;
            for (std::size_t k = 0; k < 3; ++k)
                isApart |= boxes[i].low[k] > boxes[j].high[k] || boxes[j].low[k] > boxes[i].high[k];
            count += !isApart;
        }
    return count;
}

}  // namespace

// Ears leave a fan of needles over all of the cap: each pair of them is looked at by a boolean.
TEST(ToolClosing, CapsOfVeryManyPointsGetShortTriangles)
{
    Vector const along(0.6f, 0, 0.8f);
    for (bool const isOblique : {false, true}) {
        Ring const ring = isOblique ? jaggedRing(700, Vector(0.8f, 0, -0.6f), Vector(0, 1, 0))
                                    : jaggedRing(700, Vector(1, 0, 0), Vector(0, 1, 0));
        auto const tool = prism(ring, isOblique ? along * 20.0f : Vector(0, 0, 20));
        Soup const before = soupOf(*tool);
        closeTool(*tool);
        Soup const after = soupOf(*tool);
        EXPECT_EQ(faultsOf(*tool), "");
        EXPECT_EQ(manifoldFaults(after), "");
        EXPECT_EQ(after.points.size(), before.points.size());
        EXPECT_EQ(after.triangles.size(), before.triangles.size());
        EXPECT_NEAR(volumeOf(after), volumeOf(before), 1e-5 * volumeOf(before));
        EXPECT_NEAR(areaOf(after), areaOf(before), 1e-5 * areaOf(before));
        EXPECT_LT(10 * overlappingBoxes(after), overlappingBoxes(before));
    }
}

TEST(ToolClosing, CapsOfFewPointsStayAsTheyWereCut)
{
    auto const tool = prism(jaggedRing(100, Vector(1, 0, 0), Vector(0, 1, 0)), Vector(0, 0, 20));
    Soup const before = soupOf(*tool);
    closeTool(*tool);
    EXPECT_EQ(soupOf(*tool).triangles, before.triangles);
}

TEST(ToolClosing, ManyPointsOfWhichSomeCoincideAreClosedAllTheSame)
{
    Ring ring = jaggedRing(400, Vector(1, 0, 0), Vector(0, 1, 0));
    for (std::size_t i = 0; i + 1 < ring.size(); i += 7)
        ring[i + 1] = ring[i];
    auto const tool = prism(ring, Vector(0, 0, 20));
    closeTool(*tool);
    EXPECT_EQ(faultsOf(*tool), "");
    EXPECT_GT(volumeOf(soupOf(*tool)), 20 * 3.1 * 49.5 * 49.5);
}

TEST(ToolClosing, AsksForACancelInLargeToolsEveryFewThousandTriangles)
{
    Soup ball = sphere(20, 100, 150);
    ball.triangles.pop_back();
    int polls = 0;
    closeTool(*kernelOf(ball), [&] { ++polls; });
    EXPECT_GE(polls, int(ball.triangles.size() / 5000));
}

TEST(ToolClosing, CanBeLeftAndThenTheToolIsAsItWas)
{
    auto const tool = prism(jaggedRing(3000, Vector(1, 0, 0), Vector(0, 1, 0)), Vector(0, 0, 20));
    Soup const before = soupOf(*tool);
    int polls = 0;
    closeTool(*prism(jaggedRing(3000, Vector(1, 0, 0), Vector(0, 1, 0)), Vector(0, 0, 20)),
              [&] { ++polls; });
    ASSERT_GT(polls, 4);
    for (int last = 1; last <= polls; last += 2) {
        int count = 0;
        EXPECT_THROW(closeTool(*tool,
                               [&] {
                                   if (++count == last)
                                       throw Mell::AbortException("Aborting...");
                               }),
                     Mell::AbortException);
        EXPECT_EQ(soupOf(*tool).triangles, before.triangles);
    }
}

TEST(ToolClosing, VerticesStandInTheOrderInWhichTrianglesNameThem)
{
    auto const tool = prism(doubled, {0, 0, 10});
    closeTool(*tool);
    auto const mesh = tool->readMesh();
    unsigned long next = 0;
    for (auto const* const triangle : mesh->triangles)
        for (int k = 0; k < 3; ++k) {
            EXPECT_LE(triangle->cV(k)->cID(), next);
            if (triangle->cV(k)->cID() == next)
                ++next;
        }
    EXPECT_EQ(next, mesh->vertices.size());
}
