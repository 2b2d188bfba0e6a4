// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/FilesScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFileInfo>

#include <filesystem>
#include <fstream>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

/// A scene with a project that is saved and then edited.
void saveAndEdit(FilesScene& scene)
{
    scene.scene.add(box(1, 2, 3), "part");
    scene.document()->setModified(true);
    scene.answers.projectToSave = scene.path("plate.3mf");
    scene.files.save();
    scene.finish();
    scene.document()->setModified(true);
}

std::string changeOnDisk(FilesScene const& scene)
{
    std::ofstream(scene.folder / "plate.3mf", std::ios::app) << "more";
    return contentOf(scene.folder / "plate.3mf");
}

}  // namespace

TEST(ChangedOnDisk, IsAskedAboutBeforeAnythingIsReplaced)
{
    FilesScene scene;
    saveAndEdit(scene);
    std::string const saved = contentOf(scene.folder / "plate.3mf");
    std::string const others = changeOnDisk(scene);
    scene.files.save();
    scene.finish();
    EXPECT_THAT(scene.answers.changedNames, ElementsAre("plate.3mf"));
    EXPECT_EQ(contentOf(scene.folder / "plate.3mf"), others) << "cancelled";
    EXPECT_TRUE(scene.files.isModified());

    scene.answers.changed = FileQuestions::Changed::SaveElsewhere;
    scene.answers.projectToSave = scene.path("mine.3mf");
    scene.files.save();
    scene.finish();
    EXPECT_EQ(contentOf(scene.folder / "plate.3mf"), others);
    EXPECT_EQ(contentOf(scene.folder / "mine.3mf"), saved);
    EXPECT_EQ(scene.files.projectFile(), scene.path("mine.3mf"));
}

TEST(ChangedOnDisk, IsReplacedIfTheUserSaysSoAndNotAskedAboutAgain)
{
    FilesScene scene;
    saveAndEdit(scene);
    changeOnDisk(scene);
    scene.answers.changed = FileQuestions::Changed::Replace;
    for (int save = 0; save < 2; ++save) {
        scene.document()->setModified(true);
        scene.files.save();
        scene.finish();
        EXPECT_FALSE(scene.files.isModified());
    }
    EXPECT_THAT(scene.answers.changedNames, SizeIs(1));
}

TEST(ChangedOnDisk, AFileThatIsGoneIsSavedAnewWithoutAQuestion)
{
    FilesScene scene;
    saveAndEdit(scene);
    std::filesystem::remove(scene.folder / "plate.3mf");
    scene.files.save();
    scene.finish();
    EXPECT_THAT(scene.answers.changedNames, IsEmpty());
    EXPECT_TRUE(std::filesystem::exists(scene.folder / "plate.3mf"));
}

TEST(TwoWindows, WhoOpensSecondIsToldAndWhoSavesSecondIsAsked)
{
    FilesScene scene;
    saveAndEdit(scene);
    scene.document()->setModified(false);
    {
        // As another window: the lock belongs to who opened the file, not to the process.
        ProjectGuard other;
        scene.files.newDocument();
        other.watch(scene.path("plate.3mf"), stampOf(scene.path("plate.3mf")));
        EXPECT_FALSE(other.isOpenElsewhere());
        scene.files.openFiles({scene.path("plate.3mf")});
        scene.finish();
        ASSERT_THAT(scene.answers.messages, SizeIs(1));
        EXPECT_THAT(scene.answers.messages[0].toStdString(), HasSubstr("another window"));
        scene.document()->setModified(true);
        scene.files.save();
        scene.finish();
        EXPECT_THAT(scene.answers.changedNames, IsEmpty()) << "the first to save";
        EXPECT_TRUE(other.hasChanged());
    }
    ProjectGuard third;
    third.watch(scene.path("plate.3mf"), {});
    EXPECT_TRUE(third.isOpenElsewhere()) << "the lock is that of the new file";
    scene.files.newDocument();
    third.watch(scene.path("plate.3mf"), {});
    EXPECT_FALSE(third.isOpenElsewhere());
}

// Who recovers work of yesterday must not lose by it what somebody has saved today.
TEST(ChangedOnDisk, AProjectThatIsNewerThanTheRecoveredWorkIsAskedAbout)
{
    FilesScene scene;
    saveAndEdit(scene);
    scene.document()->setModified(false);
    QDateTime const saved = QFileInfo(scene.path("plate.3mf")).lastModified();
    auto const recoverAsOf = [&](QDateTime const& time) {
        bool isTakenOver = false;
        EXPECT_TRUE(scene.files.recover(
            scene.path("plate.3mf"), time,
            [](WindowJob::Progress const&) { return DocumentFiles::Recovered(); },
            [&] { isTakenOver = true; }));
        scene.finish();
        EXPECT_TRUE(isTakenOver);
        EXPECT_TRUE(scene.files.isModified());
        scene.answers.changedNames.clear();
        scene.files.save();
        scene.finish();
        scene.document()->setModified(false);
        return scene.answers.changedNames;
    };
    EXPECT_THAT(recoverAsOf(saved.addDays(-1)), ElementsAre("plate.3mf"));
    EXPECT_THAT(recoverAsOf(saved.addDays(1)), IsEmpty());
}
