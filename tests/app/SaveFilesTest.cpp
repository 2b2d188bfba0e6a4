// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/jobs/JobGuard.h"
#include "host/formats/PartFiles.h"
#include "tests/app/FilesScene.h"
#include "tests/app/ObjectStates.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using Unsaved = FileQuestions::Unsaved;

namespace {

/// Parts in a group and out of it, hidden and coloured.
void fill(FilesScene& scene)
{
    Mesh::Document& document = *scene.document();
    auto* const gear = scene.scene.add(torus(20, 7, 30, 12), "Zahnrad 歯車");
    auto* const pin = scene.scene.add(box(1, 2, 3), "pin");
    auto* const group = new Mesh::DocumentObjectGroup;
    document.addObject(group, "Größe \"M\"", true);
    group->addObject(pin, nullptr);
    pin->setVisible(false);
    pin->setColor(0x12345678);
    gear->setColor(200, 100, 50, 255);
    gear->rotate({1, 2, 3}, 0.7f, {1, 1, 0}, false);
    gear->translate({12.345f, -6, 1e-3f}, 0);
    document.setModified(true);
}

/// A folder with a file system of 64 KiB, where mounting is allowed; else a plain folder.
class SmallFileSystem
{
public:
    explicit SmallFileSystem(std::filesystem::path folder) : m_folder(std::move(folder))
    {
        std::filesystem::create_directory(m_folder);
        m_isMounted = mount("none", m_folder.c_str(), "tmpfs", 0, "size=64k") == 0;
    }
    ~SmallFileSystem()
    {
        if (m_isMounted)
            umount(m_folder.c_str());
    }
    SmallFileSystem(SmallFileSystem const&) = delete;
    SmallFileSystem& operator=(SmallFileSystem const&) = delete;

    bool isMounted() const { return m_isMounted; }
    bool makeReadOnly() const
    {
        return m_isMounted &&
               mount("none", m_folder.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, "size=64k") == 0;
    }

private:
    std::filesystem::path m_folder;
    bool m_isMounted;
};

/// The size of files is limited while it lives, as by a disk that runs full.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit const limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_before{};
    void (*m_handler)(int);
};

}  // namespace

TEST(SaveFiles, AProjectComesBackWithAllThatBelongsToIt)
{
    FilesScene scene;
    fill(scene);
    auto const before = statesOf(*scene.document());
    scene.answers.projectToSave = scene.path("Ünïcode 板");
    scene.files.save();
    scene.finish();
    ASSERT_THAT(scene.answers.messages, IsEmpty());
    EXPECT_THAT(scene.answers.suggestions, ElementsAre("Untitled.3mf"));
    EXPECT_EQ(scene.files.projectFile(), scene.path("Ünïcode 板.3mf"));
    EXPECT_FALSE(scene.files.isModified());
    EXPECT_EQ(scene.document()->getName(), "Ünïcode 板");
    EXPECT_EQ(scene.files.recentFiles().files(), QStringList{scene.files.projectFile()});

    QString const saved = scene.files.projectFile();
    scene.files.newDocument();
    EXPECT_THAT(scene.names(), IsEmpty());
    EXPECT_EQ(scene.files.projectFile(), "");
    scene.files.openFiles({saved});
    scene.finish();
    EXPECT_EQ(statesOf(*scene.document()), before);
    EXPECT_FALSE(scene.files.isModified());
    EXPECT_THAT(scene.document()->undoNames(), IsEmpty());
}

TEST(SaveFiles, ASecondSaveGoesToTheSameFileWithoutAQuestion)
{
    FilesScene scene;
    fill(scene);
    scene.answers.projectToSave = scene.path("plate.3mf");
    scene.files.save();
    scene.finish();
    std::string const first = contentOf(scene.folder / "plate.3mf");
    scene.document()->openTransaction("Rename");
    scene.document()->getMeshObjects()[0]->setName("renamed");
    scene.document()->commitTransaction();
    scene.answers.projectToSave.clear();
    scene.files.save();
    scene.finish();
    EXPECT_THAT(scene.answers.suggestions, SizeIs(1));
    EXPECT_NE(contentOf(scene.folder / "plate.3mf"), first);
    EXPECT_FALSE(scene.files.isModified());
    EXPECT_THAT(scene.folder.names(), ElementsAre("plate.3mf"));
}

TEST(SaveFiles, WithoutAnAnswerNothingIsSaved)
{
    FilesScene scene;
    fill(scene);
    scene.files.save();
    scene.finish();
    EXPECT_TRUE(scene.files.isModified());
    EXPECT_THAT(scene.folder.names(), IsEmpty());

    // The ending that is added meets a file the user was not asked about.
    scene.folder.file("plate.3mf", "precious");
    scene.answers.projectToSave = scene.path("plate");
    scene.answers.mayReplace = false;
    scene.files.save();
    scene.finish();
    EXPECT_EQ(contentOf(scene.folder / "plate.3mf"), "precious");
}

TEST(SaveFiles, AFullDiskLeavesTheOldFileAndTheUnsavedMark)
{
    FilesScene scene;
    fill(scene);
    scene.folder.file("plate.3mf", "precious");
    scene.answers.projectToSave = scene.path("plate.3mf");
    {
        FullDisk const disk(2000);
        scene.files.save();
        scene.finish();
    }
    ASSERT_THAT(scene.answers.messages, SizeIs(1));
    EXPECT_THAT(scene.answers.messages[0].toStdString(),
                HasSubstr("The project was not saved.\n\nFile '"));
    EXPECT_EQ(contentOf(scene.folder / "plate.3mf"), "precious");
    EXPECT_THAT(scene.folder.names(), ElementsAre("plate.3mf"));
    EXPECT_TRUE(scene.files.isModified());
    EXPECT_EQ(scene.files.projectFile(), "");
}

TEST(SaveFiles, AFileSystemWithoutRoomLeavesTheOldFile)
{
    FilesScene scene;
    SmallFileSystem const small(scene.folder / "small");
    if (!small.isMounted())
        GTEST_SKIP() << "no permission to mount a file system";
    scene.scene.add(torus(20, 7, 300, 120), "large");
    scene.folder.file("small/plate.3mf", "precious");
    scene.answers.projectToSave = scene.path("small/plate.3mf");
    scene.files.save();
    scene.finish();
    ASSERT_THAT(scene.answers.messages, SizeIs(1));
    EXPECT_THAT(scene.answers.messages[0].toStdString(), HasSubstr("No space left"));
    EXPECT_EQ(contentOf(scene.folder / "small/plate.3mf"), "precious");
}

TEST(SaveFiles, AReadOnlyFolderLeavesTheOldFile)
{
    FilesScene scene;
    fill(scene);
    // The superuser may write in any folder, but not on a file system that takes nothing.
    SmallFileSystem const small(scene.folder / "small");
    scene.folder.file("small/plate.3mf", "precious");
    if (!small.makeReadOnly() && geteuid() == 0)
        GTEST_SKIP() << "no permission to mount a file system";
    chmod((scene.folder / "small").c_str(), 0500);
    scene.answers.projectToSave = scene.path("small/plate.3mf");
    scene.files.save();
    scene.finish();
    chmod((scene.folder / "small").c_str(), 0700);
    ASSERT_THAT(scene.answers.messages, SizeIs(1));
    EXPECT_THAT(scene.answers.messages[0].toStdString(), HasSubstr("no file can be made"));
    EXPECT_EQ(contentOf(scene.folder / "small/plate.3mf"), "precious");
    EXPECT_TRUE(scene.files.isModified());
}

TEST(SaveFiles, AFolderThatTakesNoFileIsNamed)
{
    FilesScene scene;
    fill(scene);
    scene.answers.projectToSave = "/proc/plate.3mf";
    scene.files.save();
    scene.finish();
    ASSERT_THAT(scene.answers.messages, SizeIs(1));
    EXPECT_THAT(scene.answers.messages[0].toStdString(),
                HasSubstr("no file can be made in the folder '/proc'"));
    EXPECT_TRUE(scene.files.isModified());
}

TEST(SaveFiles, ACancelAtAnyPercentageLeavesTheOldFile)
{
    FilesScene scene;
    scene.scene.add(torus(20, 7, 400, 300), "large");
    scene.document()->setModified(true);
    scene.folder.file("plate.3mf", "precious");
    scene.answers.projectToSave = scene.path("plate.3mf");
    for (int const percent : {0, 20, 50, 90}) {
        PluggedSink sink;
        sink->onProgress = [percent](RecordingSink& self, int value) {
            if (value >= percent)
                self.cancel();
        };
        scene.files.save();
        scene.finish();
        EXPECT_EQ(contentOf(scene.folder / "plate.3mf"), "precious") << percent;
        EXPECT_TRUE(scene.files.isModified());
        EXPECT_EQ(scene.files.projectFile(), "");
    }
    EXPECT_THAT(scene.answers.messages, IsEmpty());
}

TEST(SaveFiles, UnsavedWorkIsAskedForAndTheAnswerHeeded)
{
    FilesScene scene;
    EXPECT_TRUE(scene.files.mayDiscard());
    EXPECT_THAT(scene.answers.unsavedNames, IsEmpty());
    fill(scene);

    scene.answers.unsaved = Unsaved::Cancel;
    EXPECT_FALSE(scene.files.mayDiscard());
    scene.answers.unsaved = Unsaved::Discard;
    EXPECT_TRUE(scene.files.mayDiscard());
    EXPECT_THAT(scene.folder.names(), IsEmpty());
    EXPECT_THAT(scene.names(), SizeIs(3));

    scene.answers.unsaved = Unsaved::Save;
    EXPECT_FALSE(scene.files.mayDiscard()) << "no file was chosen";
    scene.answers.projectToSave = scene.path("none/plate.3mf");
    EXPECT_FALSE(scene.files.mayDiscard()) << "it could not be saved";
    scene.answers.projectToSave = scene.path("plate.3mf");
    EXPECT_TRUE(scene.files.mayDiscard());
    EXPECT_THAT(scene.folder.names(), ElementsAre("plate.3mf"));
    EXPECT_THAT(scene.answers.unsavedNames, SizeIs(5));
    EXPECT_TRUE(scene.files.mayDiscard());
    EXPECT_THAT(scene.answers.unsavedNames, SizeIs(5));
}

TEST(SaveFiles, ANewDocumentAndAProjectAskBeforeTheyTakeThePlace)
{
    FilesScene scene;
    fill(scene);
    scene.answers.projectToSave = scene.path("plate.3mf");
    scene.files.saveAs();
    scene.finish();
    scene.document()->setModified(true);
    auto* const before = scene.document();
    scene.files.newDocument();
    scene.files.openFiles({scene.path("plate.3mf")});
    scene.finish();
    EXPECT_EQ(scene.document(), before);
    EXPECT_EQ(scene.answers.unsavedNames, (QStringList{"plate.3mf", "plate.3mf"}));
    scene.answers.unsaved = Unsaved::Discard;
    scene.files.openFiles({scene.path("plate.3mf")});
    scene.finish();
    EXPECT_FALSE(scene.files.isModified());
    scene.files.newDocument();
    EXPECT_THAT(scene.names(), IsEmpty());
}

TEST(SaveFiles, TheQuestionWaitsForTheJobThatRuns)
{
    FilesScene scene;
    fill(scene);
    scene.answers.projectToSave = scene.path("plate.3mf");
    scene.files.save();
    ASSERT_TRUE(scene.files.isWorking());
    EXPECT_TRUE(scene.files.mayDiscard());
    EXPECT_THAT(scene.answers.unsavedNames, IsEmpty());
    EXPECT_EQ(scene.files.projectFile(), scene.path("plate.3mf"));
}

TEST(SaveFiles, PartsAreExportedToOneFileOrToOneEach)
{
    FilesScene scene;
    fill(scene);
    auto* const double_ = scene.scene.add(box(4, 4, 4), "a/b:c");
    scene.scene.add(box(4, 4, 4), "A/b:c");
    scene.answers.plan = ExportPlan{scene.path("all.stl"), "stl", false, true};
    scene.files.exportParts(false);
    scene.finish();
    EXPECT_THAT(Formats::readParts(scene.folder / "all.stl"), SizeIs(1));

    scene.answers.plan = ExportPlan{scene.path("all.3mf"), "3mf", false, true};
    scene.files.exportParts(false);
    scene.finish();
    auto const parts = Formats::readParts(scene.folder / "all.3mf");
    ASSERT_THAT(parts, SizeIs(4));
    EXPECT_EQ(parts[1].color, 0x12345678u);

    std::filesystem::create_directory(scene.folder / "each");
    scene.answers.plan = ExportPlan{scene.path("each"), "obj", true, true};
    scene.files.exportParts(false);
    scene.finish();
    std::vector<std::string> names;
    for (auto const& entry : std::filesystem::directory_iterator(scene.folder / "each"))
        names.push_back(entry.path().filename().string());
    EXPECT_THAT(names, testing::UnorderedElementsAre("Zahnrad 歯車.obj", "pin.obj", "a_b_c.obj",
                                                     "A_b_c_2.obj"));

    double_->setSelected(true, true, true);
    scene.answers.plan = ExportPlan{scene.path("one.ply"), "ply", false};
    scene.files.exportParts(true);
    scene.finish();
    auto const one = Formats::readParts(scene.folder / "one.ply");
    ASSERT_THAT(one, SizeIs(1));
    EXPECT_FLOAT_EQ(one[0].kernel->GetBox().MaxX(), 4);
    EXPECT_THAT(scene.answers.suggestions,
                ElementsAre("Zahnrad 歯車", "Zahnrad 歯車", "Zahnrad 歯車", "a/b:c"));
    EXPECT_THAT(scene.answers.messages, IsEmpty());
}

TEST(SaveFiles, FilesOfPartsAreReplacedOnlyWithConsent)
{
    FilesScene scene;
    scene.scene.add(box(1, 1, 1), "a");
    scene.scene.add(box(1, 1, 1), "b");
    scene.folder.file("a.stl", "precious");
    scene.answers.plan = ExportPlan{scene.path(""), "stl", true};
    scene.answers.mayReplace = false;
    scene.files.exportParts(false);
    scene.finish();
    ASSERT_THAT(scene.answers.replacements, SizeIs(1));
    EXPECT_EQ(scene.answers.replacements[0].size(), 1);
    EXPECT_EQ(contentOf(scene.folder / "a.stl"), "precious");
    EXPECT_THAT(scene.folder.names(), ElementsAre("a.stl"));
    scene.answers.mayReplace = true;
    scene.files.exportParts(false);
    scene.finish();
    EXPECT_THAT(scene.folder.names(), ElementsAre("a.stl", "b.stl"));
    EXPECT_NE(contentOf(scene.folder / "a.stl"), "precious");
}

TEST(SaveFiles, AnExportOntoAFullDiskLeavesTheOldFileAndSaysSo)
{
    FilesScene scene;
    scene.scene.add(torus(20, 7, 100, 60), "a");
    scene.folder.file("a.stl", "precious");
    scene.answers.plan = ExportPlan{scene.path("a.stl"), "stl", false};
    {
        FullDisk const disk(2000);
        scene.files.exportParts(false);
        scene.finish();
    }
    ASSERT_THAT(scene.answers.messages, SizeIs(1));
    EXPECT_THAT(scene.answers.messages[0].toStdString(), HasSubstr("it cannot be written"));
    EXPECT_EQ(contentOf(scene.folder / "a.stl"), "precious");
}

TEST(SaveFiles, PartsWithoutTrianglesAreNotExported)
{
    FilesScene scene;
    scene.scene.add({}, "empty");
    scene.answers.plan = ExportPlan{scene.path("a.stl"), "stl", false};
    scene.files.exportParts(false);
    scene.finish();
    EXPECT_THAT(scene.answers.messages, SizeIs(1));
    EXPECT_THAT(scene.folder.names(), IsEmpty());
}
