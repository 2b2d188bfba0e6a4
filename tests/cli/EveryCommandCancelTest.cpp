// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"
#include "tests/support/CancelledProcess.h"
#include "tests/support/CorpusParts.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Places.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <random>
#include <string>
#include <utility>

// Every command on what it has most to do with, cancelled at random moments.

namespace {

using Names = std::vector<std::string>;

/// A command that goes on to its end takes all of what was left of its work after a signal. One that
/// polls takes little: this leaves room for the longest of its steps, and for a machine on which two
/// runs of the same take different times.
constexpr double mostOfTheRest = 0.5;
/// Later than this share of the work too little is left to tell one from the other.
constexpr double lastTellingMoment = 0.4;
constexpr int attempts = 3;

/// A command that writes pieces, or nothing, is cancelled.
class CancelledCommand
{
public:
    CancelledCommand(FreecutFolder& folder, Names arguments)
        : m_folder(folder),
          m_inputs(filesBesidePieces()),
          m_hasPieces(arguments[0] != "info"),
          m_process(builtPath("freecut"), withOutput(std::move(arguments)), folder.path("."))
    {
        m_whole = wholeSeconds();
        m_pieces = pieces();
    }

    /// At a share of its processor time. It ends by itself, and leaves all that it writes or nothing.
    /// Returns whether it was cancelled, and not done before.
    bool endsAt(double moment, int signal)
    {
        SCOPED_TRACE(moment);
        std::filesystem::remove_all(m_folder.path("pieces"));
        m_end = m_process.cancelAfter(moment * m_whole, signal);
        if (m_end.status == 0) {
            EXPECT_EQ(pieces(), m_pieces);
            return false;
        }
        // A process that has not yet begun to listen ends by the signal itself.
        EXPECT_EQ(m_end.status, 128 + signal);
        EXPECT_EQ(filesBesidePieces(), m_inputs);
        EXPECT_EQ(pieces(), 0u);
        return true;
    }

    /// As endsAt, and leaves most of the rest undone. Whole runs and cancelled ones take turns, so
    /// that both meet the same machine; what a busy one has spoilt is tried again.
    bool leavesWorkUndoneAt(double moment, int signal)
    {
        double share = 1;
        bool isCancelled = false;
        for (int attempt = 0; attempt < attempts && share > mostOfTheRest; ++attempt) {
            if (attempt > 0)
                m_whole = wholeSeconds();
            isCancelled = endsAt(moment, signal);
            share = m_end.secondsAfterSignal / ((1 - moment) * m_whole);
        }
        EXPECT_LT(share, mostOfTheRest) << "of " << m_whole << " s, " << m_end.secondsAfterSignal
                                        << " s after the signal at " << moment;
        m_largestShare = std::max(m_largestShare, share);
        return isCancelled;
    }

    /// Of what was left to do at a signal.
    double largestShare() const { return m_largestShare; }

private:
    static Names withOutput(Names arguments)
    {
        if (arguments[0] != "info")
            arguments.insert(arguments.end(), {"-o", "pieces"});
        return arguments;
    }
    double wholeSeconds()
    {
        std::filesystem::remove_all(m_folder.path("pieces"));
        CancelledProcess::End const whole = m_process.run();
        EXPECT_EQ(whole.status, 0);
        return whole.seconds;
    }
    Names filesBesidePieces() const
    {
        Names files = m_folder.files();
        std::erase(files, "pieces");
        return files;
    }
    std::size_t pieces() const
    {
        bool const isThere = m_hasPieces && std::filesystem::exists(m_folder.path("pieces"));
        return isThere ? m_folder.files("pieces").size() : 0;
    }

    FreecutFolder& m_folder;
    Names m_inputs;
    bool m_hasPieces;
    CancelledProcess m_process;
    double m_whole = 0;
    std::size_t m_pieces = 0;
    CancelledProcess::End m_end;
    double m_largestShare = 0;
};

/// Cancels a command at random moments of its processor time, early and late ones.
void cancelAtRandom(FreecutFolder& folder, Names const& arguments, unsigned seed)
{
    SCOPED_TRACE(testing::PrintToString(arguments));
    CancelledCommand command(folder, arguments);
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> early(0.02, lastTellingMoment);
    std::uniform_real_distribution<double> late(lastTellingMoment, 0.9);
    int cancelled = 0;
    for (int const signal : {SIGTERM, SIGINT}) {
        cancelled += command.leavesWorkUndoneAt(early(random), signal);
        cancelled += command.endsAt(late(random), signal);
    }
    EXPECT_GT(cancelled, 0);
    testing::Test::RecordProperty("largestShareAfterSignal" + std::to_string(seed),
                                  std::to_string(command.largestShare()));
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
