// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/jobs/JobGuard.h"
#include "host/formats/ProjectFile.h"
#include "platform/view/MeshGLView.h"
#include "tests/app/FilesScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QThread>

#include <algorithm>
#include <filesystem>
#include <set>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

TEST(OpenFiles, PartsOfAllFormatsEnterTheDocumentInOneUndoStep)
{
    FilesScene scene;
    scene.files.openFiles(
        {scene.partFile("a.stl", box(1, 2, 3)), scene.partFile("b.obj", torus(20, 7, 30, 12)),
         scene.partFile("c.ply", sphere(5, 8, 12)), scene.partFile("d.3mf", box(2, 2, 2))});
    scene.finish();
    EXPECT_THAT(scene.names(), ElementsAre("a", "b", "c", "d"));
    EXPECT_THAT(scene.answers.messages, IsEmpty());
    EXPECT_THAT(scene.document()->undoNames(), ElementsAre("Open 4 files"));
    EXPECT_FLOAT_EQ(scene.document()->getMeshObjects()[0]->getBoundingBox().MaxZ(), 3);
    ASSERT_TRUE(scene.document()->undo());
    EXPECT_THAT(scene.names(), IsEmpty());
    ASSERT_TRUE(scene.document()->redo());
    EXPECT_THAT(scene.names(), SizeIs(4));
    EXPECT_EQ(scene.sink->openDisplays(), 0);
    EXPECT_THAT(scene.sink->titles(), ElementsAre("Opening files"));
    EXPECT_TRUE(std::ranges::is_sorted(scene.sink->values()));
    EXPECT_EQ(scene.sink->values().back(), 100);
}

TEST(OpenFiles, ABrokenFileAmongGoodOnesIsToldAndTheOthersOpen)
{
    FilesScene scene;
    scene.folder.file("broken.stl", std::string(200, 'x'));
    scene.folder.file("empty.ply", "");
    scene.files.openFiles({scene.partFile("good.stl", box(1, 2, 3)), scene.path("broken.stl"),
                           scene.path("missing.obj"), scene.path("empty.ply"),
                           scene.partFile("fine.obj", box(1, 1, 1))});
    scene.finish();
    EXPECT_THAT(scene.names(), ElementsAre("good", "fine"));
    ASSERT_THAT(scene.answers.messages, SizeIs(1));
    std::string const message = scene.answers.messages.front().toStdString();
    EXPECT_THAT(message, HasSubstr("3 files could not be opened:"));
    EXPECT_THAT(message, HasSubstr("broken.stl"));
    EXPECT_THAT(message, HasSubstr("missing.obj': there is no such file"));
    EXPECT_THAT(message, HasSubstr("empty.ply': it is empty"));
    EXPECT_FALSE(scene.files.recentFiles().files().contains(scene.path("broken.stl")));
}

TEST(OpenFiles, ALoneBrokenFileIsOneSentenceAndLeavesNoTrace)
{
    FilesScene scene;
    scene.folder.file("broken.3mf", "PK\3\4 and nothing more");
    scene.files.openFiles({scene.path("broken.3mf")});
    scene.finish();
    ASSERT_THAT(scene.answers.messages, SizeIs(1));
    EXPECT_TRUE(scene.answers.messages[0].startsWith("File '"));
    EXPECT_THAT(scene.document()->undoNames(), IsEmpty());
    EXPECT_FALSE(scene.files.isModified());
}

TEST(OpenFiles, ACancelAtAnyPercentageLeavesTheDocumentAsItWas)
{
    FilesScene scene;
    scene.scene.add(box(1, 1, 1), "kept");
    QStringList const files = {scene.partFile("a.stl", torus(20, 7, 300, 120)),
                               scene.partFile("b.obj", torus(20, 7, 100, 60)),
                               scene.partFile("c.3mf", torus(20, 7, 200, 120))};
    auto const undoNames = scene.document()->undoNames();
    // Values that the run reports, each of which is then the one a cancel comes at.
    scene.files.openFiles(files);
    scene.finish();
    ASSERT_TRUE(scene.document()->undo());
    scene.document()->clearHistory();
    scene.document()->setModified(false);
    std::set<int> const values = [&] {
        auto const all = scene.sink->values();
        return std::set<int>(all.begin(), all.end());
    }();
    ASSERT_GT(values.size(), 5u);
    for (int const value : values) {
        PluggedSink sink;
        sink->onProgress = [value](RecordingSink& self, int current) {
            if (current >= value)
                self.cancel();
        };
        scene.files.openFiles(files);
        scene.finish();
        EXPECT_THAT(scene.names(), ElementsAre("kept")) << value;
        EXPECT_EQ(scene.document()->undoNames(), undoNames) << value;
        EXPECT_FALSE(scene.files.isModified()) << value;
        EXPECT_FALSE(JobGuard::instance()->isBusy()) << value;
    }
    EXPECT_THAT(scene.answers.messages, IsEmpty());
}

TEST(OpenFiles, PartsAreReadAndPreparedOffTheUserInterfaceThread)
{
    FilesScene scene;
    QThread* loading = nullptr;
    UBox3<float> box_;
    scene.files.setPreparation([&](MeshKernel const& kernel, PartLoader::Progress const&) {
        loading = QThread::currentThread();
        box_ = kernel.GetBox();
    });
    scene.files.openFiles({scene.partFile("a.stl", box(1, 2, 3))});
    // The call has returned before anything is read.
    EXPECT_TRUE(scene.files.isWorking());
    EXPECT_TRUE(JobGuard::instance()->isBusy());
    EXPECT_THAT(scene.names(), IsEmpty());
    scene.finish();
    ASSERT_TRUE(loading);
    EXPECT_NE(loading, QThread::currentThread());
    EXPECT_FLOAT_EQ(box_.MaxY(), 2);
}

TEST(OpenFiles, FilesThatComeWhileOneIsReadWaitForTheirTurn)
{
    FilesScene scene;
    QString const first = scene.partFile("first.stl", torus(20, 7, 200, 100));
    QString const second = scene.partFile("second.stl", box(1, 1, 1));
    scene.files.openFiles({first});
    scene.files.openFiles({second});
    EXPECT_TRUE(scene.files.isWorking());
    scene.finish();
    EXPECT_THAT(scene.names(), ElementsAre("first", "second"));
    EXPECT_THAT(scene.document()->undoNames(), ElementsAre("Open second.stl", "Open first.stl"));
}

TEST(OpenFiles, FilesWaitForAnotherJob)
{
    FilesScene scene;
    auto hold = std::make_unique<JobGuard::Hold>();
    scene.files.openFiles({scene.partFile("a.stl", box(1, 1, 1))});
    QTimer::singleShot(120, [&] {
        EXPECT_THAT(scene.names(), IsEmpty());
        hold.reset();
    });
    scene.finish();
    EXPECT_THAT(scene.names(), ElementsAre("a"));
}

TEST(OpenFiles, NamesStayUniqueAndUnicodeIsKept)
{
    FilesScene scene;
    std::string const name = "größe 歯車 'x'.stl";
    std::filesystem::create_directory(scene.folder / "other");
    QString const file = scene.partFile(name, box(1, 1, 1));
    QString const other = scene.partFile("other/" + name, box(1, 1, 1));
    scene.files.openFiles({file, other, file});
    scene.finish();
    EXPECT_THAT(scene.names(), ElementsAre("größe 歯車 'x'", "größe 歯車 'x'1"));
    EXPECT_EQ(scene.files.recentFiles().files(), (QStringList{file, other}));
}

TEST(OpenFiles, RelativePathsAreThoseOfTheWorkingFolder)
{
    FilesScene scene;
    QString const file = scene.partFile("a.stl", box(1, 1, 1));
    QString const before = QDir::currentPath();
    QDir::setCurrent(scene.path(""));
    scene.files.openFiles({"a.stl"});
    QDir::setCurrent(before);
    scene.finish();
    EXPECT_THAT(scene.names(), ElementsAre("a"));
}

TEST(OpenFiles, ThePartsFillTheViewOnlyIfTheDocumentWasEmpty)
{
    FilesScene scene;
    Mesh::GLView view;
    view.resize(400, 300);
    view.setDocument(scene.document());
    scene.files.openFiles({scene.partFile("a.stl", box(1, 1, 1))});
    scene.finish();
    double width = 0;
    double height = 0;
    view.getCamera()->get_view_rect(width, height);
    EXPECT_LT(height, 10);
    scene.files.openFiles({scene.partFile("b.stl", box(500, 500, 500))});
    scene.finish();
    double later = 0;
    view.getCamera()->get_view_rect(width, later);
    EXPECT_EQ(later, height);
}

TEST(OpenFiles, AnOpenedPartIsUnsavedWorkOnlyBesideOtherWork)
{
    FilesScene scene;
    scene.files.openFiles({scene.partFile("a.stl", box(1, 1, 1))});
    scene.finish();
    EXPECT_FALSE(scene.files.isModified());
    scene.document()->openTransaction("Rename");
    scene.document()->getMeshObjects()[0]->setName("b");
    scene.document()->commitTransaction();
    EXPECT_TRUE(scene.files.isModified());
    scene.document()->setModified(false);
    scene.document()->undo();
    EXPECT_TRUE(scene.files.isModified());
}

TEST(OpenFiles, AProjectTakesTheDocumentsPlaceAndOthersAreAdded)
{
    FilesScene scene;
    scene.scene.add(box(1, 1, 1), "old");
    Formats::ProjectObject object;
    object.name = "from project";
    object.kernel = kernelOf(box(2, 2, 2));
    Formats::writeProject(scene.folder / "plate.3mf", {&object, 1}, {}, Formats::Overwrite::Refuse);
    int opened = 0;
    QObject::connect(&scene.files, &DocumentFiles::opened, [&] { ++opened; });
    scene.files.openFiles({scene.partFile("a.stl", box(1, 1, 1)), scene.path("plate.3mf")});
    scene.finish();
    EXPECT_THAT(scene.names(), ElementsAre("from project", "a"));
    EXPECT_EQ(scene.files.projectFile(), scene.path("plate.3mf"));
    EXPECT_EQ(scene.files.displayName(), "plate.3mf");
    EXPECT_EQ(scene.document()->getName(), "plate");
    EXPECT_EQ(scene.scene.application.documents().size(), 1u);
    EXPECT_EQ(opened, 1);
    // The part is not in the project's file.
    EXPECT_TRUE(scene.files.isModified());
}

TEST(OpenFiles, ABrokenProjectLeavesTheDocumentInPlace)
{
    FilesScene scene;
    scene.scene.add(box(1, 1, 1), "kept");
    auto* const before = scene.document();
    Formats::ProjectObject object;
    object.kernel = kernelOf(torus(20, 7, 100, 60));
    Formats::writeProject(scene.folder / "plate.3mf", {&object, 1}, {}, Formats::Overwrite::Refuse);
    std::string content = contentOf(scene.folder / "plate.3mf");
    content[content.size() / 2] = char(content[content.size() / 2] ^ 0x55);
    scene.folder.file("plate.3mf", content);
    scene.files.openFiles({scene.path("plate.3mf")});
    scene.finish();
    EXPECT_EQ(scene.document(), before);
    EXPECT_THAT(scene.names(), ElementsAre("kept"));
    EXPECT_THAT(scene.answers.messages, SizeIs(1));
    EXPECT_EQ(scene.files.projectFile(), "");
}

TEST(OpenFiles, AFileThatIsGoneIsToldAndTakenOffTheRecentOnes)
{
    FilesScene scene;
    scene.files.recentFiles().add(scene.path("gone.stl"));
    scene.files.openRecent(scene.path("gone.stl"));
    scene.finish();
    ASSERT_THAT(scene.answers.messages, SizeIs(1));
    EXPECT_THAT(scene.answers.messages[0].toStdString(), HasSubstr("gone.stl\" is not there"));
    EXPECT_THAT(scene.files.recentFiles().files(), IsEmpty());
}

TEST(OpenFiles, ADestroyedDoorWaitsForItsJobAndDropsTheResult)
{
    FilesScene scene;
    QString const file = scene.partFile("a.stl", torus(20, 7, 300, 200));
    bool isRead = false;
    {
        DocumentFiles door(std::make_unique<AnsweredQuestions>(scene.answers));
        door.setPreparation([&](MeshKernel const&, PartLoader::Progress const&) { isRead = true; });
        door.openFiles({file});
    }
    EXPECT_TRUE(isRead);
    scene.finish();
    EXPECT_THAT(scene.names(), IsEmpty());
    EXPECT_FALSE(JobGuard::instance()->isBusy());
}
