// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/LayerUnion.h"
#include "host/services/repair/EdgeSeparation.h"
#include "host/services/repair/WallRemoval.h"
#include "platform/services/Intersect.h"
#include "platform/services/Repair.h"
#include "tests/support/CorpusParts.h"
#include "tests/support/Crossings.h"
#include "tests/support/PieceRules.h"
#include "tests/support/SurfaceEdges.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

// Parts made of several bodies: what the repair of the whole makes of them has to be one closed
// solid that crosses nothing, and the one that was there. Judged by what the services know nothing
// of.
namespace {

std::function<void(int)> const nobody;

MeshArrays arraysOf(Soup const& soup)
{
    MeshArrays mesh;
    mesh.points = soup.points;
    for (auto const& t : soup.triangles)
        mesh.triangles.push_back({std::uint32_t(t[0]), std::uint32_t(t[1]), std::uint32_t(t[2])});
    return mesh;
}

Soup soupOf(MeshArrays const& mesh)
{
    return soupOf(MeshKernel(makeMesh(mesh).release()));
}

/// Faults of a mesh as one solid in place of another; empty if there are none.
std::string faultsOf(Soup const& before, Soup const& after)
{
    judge::SurfaceEdges const edges = judge::edgesOf(after);
    judge::Crossings const crossings = judge::crossingsOf(after);
    std::string text;
    if (!edges.isClosed() || edges.flatTriangles > 0)
        text += "not closed; ";
    if (crossings.total() > 0)
        text += std::to_string(crossings.total()) + " crossings; ";
    judge::Source const source(before);
    return text + judge::faultsOf(source, {after}, judge::sameSolidRule(), 300).wrong;
}

std::set<std::string> const& layeredKinds()
{
    static std::set<std::string> const kinds{"overlapping shells", "nested shells",
                                             "touching shells", "coinciding shells",
                                             "edges of four and six"};
    return kinds;
}

Soup partOf(std::string const& name)
{
    for (corpus::Part const& part : corpus::parts())
        if (part.name == name)
            return part.soup;
    ADD_FAILURE() << "no part " << name;
    return {};
}

struct Mended
{
    Soup soup;
    Repair::Report report;
};

Mended mend(MeshKernel& kernel)
{
    Repair::RepairMethods repair(&kernel);
    repair.autoRepair_simple_advanced({});
    return {soupOf(kernel), repair.report()};
}

/// Both pieces of a part cut at a share of its height.
std::vector<std::shared_ptr<MeshKernel>> cutAtShare(Soup const& soup, float share)
{
    auto const part = kernelOf(soup);
    UBox3<float> const box = part->GetBox();
    float const z = box.MinZ() + share * (box.MaxZ() - box.MinZ());
    float const far = 10 * (1 + std::abs(box.MaxX()) + std::abs(box.MinX()) + std::abs(box.MaxY()) +
                            std::abs(box.MinY()));
    Soup plane;
    plane.points = {{-far, -far, z}, {far, -far, z}, {far, far, z}, {-far, far, z}};
    plane.triangles = {{0, 1, 2}, {0, 2, 3}};
    auto const planeKernel = kernelOf(plane);
    auto const above = std::make_shared<MeshKernel>(), below = std::make_shared<MeshKernel>();
    MeshKernel section;
    Intersect::cutByPlane(part.get(), planeKernel.get(), above.get(), below.get(), &section, {},
                          true);
    return {above, below};
}

}  // namespace

TEST(LayeredRepair, MakesOneClosedSolidOfPartsOfManyBodies)
{
    std::size_t count = 0;
    for (corpus::Part const& part : corpus::parts()) {
        if (!layeredKinds().contains(part.kind))
            continue;
        auto const kernel = kernelOf(part.soup);
        Mended const mended = mend(*kernel);
        EXPECT_EQ(faultsOf(part.soup, mended.soup), "") << part.name;
        EXPECT_TRUE(mended.report.left.empty()) << part.name;
        ++count;
    }
    EXPECT_GE(count, 20u);
}

// A cut divides walls and coinciding triangles anew, so that no two of them match any more.
TEST(LayeredRepair, MakesOneClosedSolidOfTheirCutPieces)
{
    for (corpus::Part const& part : corpus::parts()) {
        if (!layeredKinds().contains(part.kind) && part.name != "duplicated-and-flipped")
            continue;
        for (auto const& piece : cutAtShare(part.soup, 0.4371f)) {
            Soup const before = soupOf(*piece);
            Mended const mended = mend(*piece);
            EXPECT_EQ(faultsOf(before, mended.soup), "") << part.name;
            EXPECT_TRUE(mended.report.left.empty()) << part.name;
        }
    }
}

TEST(LayeredRepair, TellsWhatItHasTakenApart)
{
    auto const kernel = kernelOf(boxesSharingAnEdge());
    Mended const mended = mend(*kernel);
    EXPECT_EQ(mended.report.countOf(Repair::Flaw::crowdedEdge), 1u);
    ASSERT_EQ(mended.report.mended.size(), 1u);
    EXPECT_EQ(mended.report.mended[0].places.size(), 1u);
}

TEST(EdgeSeparation, MovesNoPointAndPartsEveryEdge)
{
    for (char const* const name :
         {"touch-along-an-edge", "edge-of-four", "edge-of-six", "random-voxels"}) {
        Soup const part = partOf(name);
        MeshArrays mesh = arraysOf(part);
        StageProgress progress(nobody);
        std::size_t const edges = fullEdges(mesh, true, progress).size();
        ASSERT_GT(edges, 0u) << name;
        separateEdges(mesh, progress);
        EXPECT_TRUE(fullEdges(mesh, true, progress).empty()) << name;
        ASSERT_GE(mesh.points.size(), part.points.size());
        for (std::size_t i = 0; i < part.points.size(); ++i)
            EXPECT_EQ(mesh.points[i], part.points[i]) << name;
        Soup const after = soupOf(mesh);
        EXPECT_EQ(faultsOf(part, after), "") << name;
        EXPECT_NEAR(volumeOf(after), volumeOf(part), 1e-5 * volumeOf(part)) << name;
    }
}

TEST(EdgeSeparation, FindsEdgesBetweenVerticesThatAreNotShared)
{
    MeshArrays const mesh = arraysOf(partOf("touch-along-an-edge"));
    StageProgress progress(nobody);
    EXPECT_EQ(fullEdges(mesh, false, progress).size(), 1u);
    MeshArrays const apart = arraysOf(box(2, 3, 4));
    EXPECT_TRUE(fullEdges(apart, true, progress).empty());
}

TEST(LayerUnion, IsTheSolidAroundWhichAMeshWinds)
{
    for (char const* const name :
         {"boxes-crossing", "three-balls", "box-twice", "ball-twice-nearly",
          "boxes-with-coplanar-sides", "onion", "figure-of-eight"}) {
        Soup const part = partOf(name);
        StageProgress progress(nobody);
        auto const united = unitedLayers(arraysOf(part), progress);
        ASSERT_TRUE(united) << name;
        EXPECT_EQ(faultsOf(part, soupOf(*united)), "") << name;
    }
}

TEST(LayerUnion, KnowsTheVolumeOfTwoBoxes)
{
    Soup part = box(4, 4, 4);
    part.append(box(4, 4, 4, {2, 1, 1}));
    StageProgress progress(nobody);
    auto const united = unitedLayers(arraysOf(part), progress);
    ASSERT_TRUE(united);
    EXPECT_NEAR(volumeOf(soupOf(*united)), 64 + 64 - 2 * 3 * 3, 1e-4);
}

TEST(LayerUnion, GivesNothingOfAnOpenMeshThatMeetsItself)
{
    Soup part = openBox(4, 4, 4);
    part.append(box(4, 4, 4, {2, 1, 1}));
    StageProgress progress(nobody);
    EXPECT_FALSE(unitedLayers(arraysOf(part), progress));
}

TEST(WallRemoval, LeavesWhatHasNoWallAsItIs)
{
    for (NamedSoup const& named : closedMeshes()) {
        StageProgress progress(nobody);
        MeshArrays const mesh = arraysOf(named.soup);
        WallRemoval const result = withoutWalls(mesh, progress);
        EXPECT_EQ(result.mesh.triangles, mesh.triangles) << named.name;
        EXPECT_TRUE(result.walls.empty() && result.copies.empty() && result.turned.empty());
    }
}

TEST(WallRemoval, TellsWallsFromCopies)
{
    StageProgress progress(nobody);
    WallRemoval const wall = withoutWalls(arraysOf(partOf("inner-wall")), progress);
    EXPECT_EQ(wall.walls.size(), 1u);
    EXPECT_TRUE(wall.copies.empty());
    EXPECT_TRUE(judge::edgesOf(soupOf(wall.mesh)).isClosed());

    Soup doubled = sphere(16, 14, 20);
    doubled.triangles.push_back(doubled.triangles[100]);
    WallRemoval const copies = withoutWalls(arraysOf(doubled), progress);
    EXPECT_TRUE(copies.walls.empty());
    EXPECT_EQ(copies.copies.size(), 1u);
    EXPECT_TRUE(judge::edgesOf(soupOf(copies.mesh)).isClosed());
}
