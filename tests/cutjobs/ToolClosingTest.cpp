// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/ToolClosing.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"
#include "tools/PrismMesh.h"
#include "tools/ToolOutlines.h"

#include <gtest/gtest.h>

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
