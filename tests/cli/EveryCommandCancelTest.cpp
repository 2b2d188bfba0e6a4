// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"
#include "tests/support/CancelledProcess.h"
#include "tests/support/CorpusParts.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Places.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <random>

// Every command on what it has most to do with, cancelled at random moments.

namespace {

using Names = std::vector<std::string>;

/// Cancels a command at random moments of its processor time. It must end by itself, leave all it
/// writes or nothing, and not go on: what it does after the signal is a small share of what the whole
/// command takes. Processor time is counted, so that a busy machine makes no difference.
void cancelAtRandom(FreecutFolder& folder, Names arguments, unsigned seed)
{
    SCOPED_TRACE(testing::PrintToString(arguments));
    Names const inputs = folder.files();
    bool const hasPieces = arguments[0] != "info";
    if (hasPieces)
        arguments.insert(arguments.end(), {"-o", "pieces"});
    CancelledProcess const process(builtPath("freecut"), arguments, folder.path("."));
    CancelledProcess::End const whole = process.run();
    ASSERT_EQ(whole.status, 0);
    std::size_t const pieces = hasPieces ? folder.files("pieces").size() : 0;
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> share(0.02, 0.9);
    int cancelled = 0;
    for (int const signal : {SIGTERM, SIGINT, SIGTERM, SIGINT}) {
        std::filesystem::remove_all(folder.path("pieces"));
        double const moment = share(random);
        SCOPED_TRACE(moment);
        CancelledProcess::End const end = process.cancelAfter(moment * whole.seconds, signal);
        if (end.status == 0) {
            EXPECT_EQ(hasPieces ? folder.files("pieces").size() : 0, pieces);
            continue;
        }
        ++cancelled;
        // A process that has not yet begun to listen ends by the signal itself.
        EXPECT_EQ(end.status, 128 + signal);
        EXPECT_LT(end.secondsAfterSignal, 0.1 + 0.3 * whole.seconds);
        Names left = folder.files();
        std::erase(left, "pieces");
        EXPECT_EQ(left, inputs);
        if (std::filesystem::exists(folder.path("pieces"))) {
            EXPECT_EQ(folder.files("pieces"), Names());
        }
    }
    EXPECT_GT(cancelled, 0);
}

}  // namespace

TEST(FreecutCancel, WhatLooksAtAPartEndsAtRandomMoments)
{
    FreecutFolder folder;
    folder.addStl(sphere(50, 400, 500), "ball.stl");
    cancelAtRandom(folder, {"info", "ball.stl"}, 1);
}

TEST(FreecutCancel, CutsOfManyTrianglesEndAtRandomMoments)
{
    FreecutFolder folder;
    folder.addStl(sphere(50, 300, 400), "ball.stl");
    cancelAtRandom(folder, {"zcut", "ball.stl", "--height", "1.234"}, 2);
    cancelAtRandom(folder,
                   {"cylinder", "ball.stl", "--view", "front", "--center", "3,2", "--radius", "30",
                    "--tolerance", "0.001", "--clearance", "0.1", "--direction", "both"},
                   3);
    cancelAtRandom(folder,
                   {"cuboid", "ball.stl", "--view", "front", "--center", "3,2", "--length", "40",
                    "--width", "30", "--angle", "30", "--round", "4", "--clearance", "0.1"},
                   4);
}

TEST(FreecutCancel, CutsThatMendEndAtRandomMoments)
{
    FreecutFolder folder;
    folder.addStl(corpus::noisyScan(60, 90, 0.3f, 5), "scan.stl");
    cancelAtRandom(folder, {"repair", "scan.stl", "--allow-open"}, 5);
    cancelAtRandom(folder,
                   {"zcut", "scan.stl", "--height", "0.37", "--repair", "all", "--allow-open"}, 6);
}

TEST(FreecutCancel, SectionsOfManyPointsEndAtRandomMoments)
{
    FreecutFolder folder;
    folder.addStl(tube(60, 40, 20, 4000), "tube.stl");
    Names const section{"section", "tube.stl", "--center", "0,0,10", "--normal", "0,0,1"};
    unsigned seed = 7;
    for (Names const& connectors :
         {Names{"--pins"}, Names{"--holes", "--side-distance", "3"}, Names{"--lap-joint"}}) {
        Names arguments = section;
        arguments.insert(arguments.end(), connectors.begin(), connectors.end());
        cancelAtRandom(folder, arguments, seed++);
    }
}

TEST(FreecutCancel, BooleansOfManyCrossingsEndAtRandomMoments)
{
    FreecutFolder folder;
    Soup shifted = sphere(50, 120, 160);
    folder.addStl(shifted, "a.stl");
    for (auto& p : shifted.points)
        p += UVector3<float>(0.0006f, 0.0005f, 0.00062f);
    folder.addStl(shifted, "b.stl");
    cancelAtRandom(folder, {"boolean", "a.stl", "b.stl", "--split"}, 10);
    cancelAtRandom(folder, {"boolean", "a.stl", "b.stl", "--union"}, 11);
}
