// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::HasSubstr;

TEST(FreecutSlices, AreAsHighAsAskedForAndNumberedFromAbove)
{
    FreecutFolder folder;
    folder.addStl(box(10, 20, 25, {0, 0, 5}), "tower.stl");
    auto const result =
        folder.run({"zcut", "tower.stl", "--every", "10", "-o", "out", "--json", "-"});
    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.errors, "");
    EXPECT_THAT(folder.files("out"),
                ElementsAre("tower_cut1.stl", "tower_cut2.stl", "tower_cut3.stl"));
    for (auto const& [name, volume] : {std::pair("out/tower_cut1.stl", 1000),
                                       {"out/tower_cut2.stl", 2000},
                                       {"out/tower_cut3.stl", 2000}}) {
        EXPECT_EQ(closedSolidFaults(folder.mesh(name)), "") << name;
        EXPECT_NEAR(volumeOf(folder.mesh(name)), volume, 1e-2) << name;
    }
    EXPECT_EQ(result.json()["parts"][0]["pieces"].size(), 3u);
}

TEST(FreecutSlices, OfARoundPartAreClosedAndItsVolumeTogether)
{
    FreecutFolder folder;
    Soup const ring = torus(20, 7, 60, 40);
    folder.addStl(ring, "ring.stl");
    ASSERT_EQ(folder.run({"zcut", "ring.stl", "--every", "1.7", "-o", "out"}).status, 0);
    double volume = 0;
    auto const names = folder.files("out");
    EXPECT_EQ(names.size(), 9u);
    for (std::string const& name : names) {
        Soup const slice = folder.mesh("out/" + name);
        EXPECT_EQ(closedSolidFaults(slice), "") << name;
        volume += volumeOf(slice);
    }
    EXPECT_NEAR(volume, volumeOf(ring), 1e-4 * volumeOf(ring));
}

TEST(FreecutSlices, APartThatIsLowerIsCopiedAndThatIsSaid)
{
    FreecutFolder folder;
    folder.addStl(box(1, 1, 3), "low.stl");
    auto const result = folder.run({"zcut", "low.stl", "--every", "40"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.errors, HasSubstr("low.stl: Nothing was cut"));
    EXPECT_EQ(
        folder.run({"zcut", "low.stl", "--every", "40", "--fail-if-uncut", "-o", "no"}).status, 1);
}

TEST(FreecutSlices, AnOpenPartIsMendedFirstIfThatIsAskedFor)
{
    FreecutFolder folder;
    Soup open = box(10, 10, 30);
    open.triangles.pop_back();
    folder.addStl(open, "open.stl");
    std::size_t refused = 0;
    for (std::string const height : {"4", "13", "16"})
        refused +=
            folder.run({"zcut", "open.stl", "--every", height, "--no-repair", "-o", "a" + height})
                .status == 1;
    EXPECT_GT(refused, 0u);
    auto const mended =
        folder.run({"zcut", "open.stl", "--every", "4", "--repair", "all", "-o", "b"});
    EXPECT_EQ(mended.status, 0) << mended.errors;
    EXPECT_EQ(folder.files("b").size(), 8u);
}

TEST(FreecutSlices, WrongUsageSaysWhatToChange)
{
    FreecutFolder folder;
    folder.addStl(box(1, 1, 3), "part.stl");
    for (std::string const every : {"0", "-3", "high"})
        EXPECT_EQ(folder.run({"zcut", "part.stl", "--every", every}).status, 2) << every;
    EXPECT_EQ(folder.run({"zcut", "part.stl", "--every", "1", "--height", "1"}).status, 2);
    auto const many = folder.run({"zcut", "part.stl", "--every", "0.002"});
    EXPECT_EQ(many.status, 2);
    EXPECT_THAT(many.errors, HasSubstr("more than 500 slices"));
    auto const named = folder.run({"zcut", "part.stl", "--every", "1", "--name", "top,bottom"});
    EXPECT_EQ(named.status, 2);
    EXPECT_THAT(named.errors, HasSubstr("numbers"));
    EXPECT_THAT(folder.files(), ElementsAre("part.stl"));
}
