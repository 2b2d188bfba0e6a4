// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/PartLoader.h"
#include "app/jobs/JobProgress.h"
#include "platform/jobs/Exceptions.h"
#include "tests/app/FilesScene.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <algorithm>

// How far jobs are, apart from the window that shows it.

TEST(JobProgress, GuessesWhatIsLeftFromTwoSecondsOn)
{
    EXPECT_EQ(JobProgress::secondsLeft(1.9, 50), std::nullopt);
    EXPECT_EQ(JobProgress::secondsLeft(2, 50), 2);
    EXPECT_EQ(JobProgress::secondsLeft(3, 75), 1);
    EXPECT_EQ(JobProgress::secondsLeft(5, 0), std::nullopt);
    EXPECT_EQ(JobProgress::secondsLeft(5, 100), std::nullopt);
    // Calm numbers: 12 seconds, 99 and more than an hour.
    EXPECT_EQ(JobProgress::secondsLeft(4, 25), 15);
    EXPECT_EQ(JobProgress::secondsLeft(1, 1), std::nullopt);
    EXPECT_EQ(JobProgress::secondsLeft(2, 2), 120);
    EXPECT_EQ(JobProgress::secondsLeft(50, 1), 4980);
    EXPECT_GT(JobProgress::secondsLeft(1e12, 1), 0);
}

TEST(JobProgress, OfOpeningIsHalfReadingAndHalfPreparation)
{
    FilesScene scene;
    QString const file = scene.partFile("a.stl", torus(20, 7, 200, 100));
    std::vector<int> told;
    std::size_t read = 0;
    PartLoader const loader({file, file}, {},
                            [&](MeshKernel const&, PartLoader::Progress const& progress) {
                                if (read == 0)
                                    read = told.size();
                                progress(0);
                                progress(50);
                                progress(100);
                            });
    loader.load([&](int percent) { told.push_back(percent); });
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_EQ(told.back(), 100);
    // Of two files of the same size.
    ASSERT_GT(read, 0u);
    EXPECT_LE(told[read - 1], 25);
    for (int const percent : {37, 50, 87})
        EXPECT_NE(std::find(told.begin(), told.end(), percent), told.end()) << percent;
}

TEST(JobProgress, OfAPreparationCancelsToo)
{
    FilesScene scene;
    QString const file = scene.partFile("a.stl", box(1, 2, 3));
    PartLoader const loader(
        {file}, {}, [](MeshKernel const&, PartLoader::Progress const& progress) { progress(50); });
    auto const cancel = [](int percent) {
        if (percent > 60)
            throw Mell::AbortException("Aborting...");
    };
    EXPECT_THROW(loader.load(cancel), Mell::AbortException);
}
