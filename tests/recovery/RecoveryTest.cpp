// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/recovery/RecoveryOffer.h"
#include "app/recovery/RecoveryPicture.h"
#include "host/document/DocumentProject.h"
#include "platform/document/CutMemory.h"
#include "tests/app/FilesScene.h"
#include "tests/app/ObjectStates.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

namespace fs = std::filesystem;

/// A scene whose changes are kept at once.
class RecoveryScene
{
public:
    FilesScene files;
    fs::path root = files.folder / "recovery";
    std::unique_ptr<AutoSave> autoSave = std::make_unique<AutoSave>(
        files.files, RecoveryFolder::make(root), std::chrono::milliseconds(0));

    Mesh::Document& document() const { return *files.document(); }

    void add(Soup const& soup, char const* name)
    {
        document().openTransaction("add");
        auto* const part = new Mesh::DocumentObject;
        part->meshProperty->setMesh(kernelOf(soup).release(), true);
        document().addObject(part, name, true);
        document().commitTransaction();
    }
    Mesh::DocumentObject& part(std::size_t place) const
    {
        return *document().getMeshObjects().at(place);
    }
    void finish()
    {
        do
            files.finish();
        while (!autoSave->isIdle());
        files.finish();
    }
    /// The files of the only folder.
    std::vector<std::string> keptFiles() const
    {
        std::vector<std::string> names;
        for (auto const& folder : fs::directory_iterator(root))
            for (auto const& file : fs::directory_iterator(folder))
                names.push_back(file.path().filename());
        std::ranges::sort(names);
        return names;
    }
};

/// Leaves a document behind as a killed program does, and tells its states. The application is there.
std::vector<ObjectState> leaveBehind(fs::path const& root, std::string const& name)
{
    Mesh::Document document;
    auto const add = [&](Soup const& soup, std::string const& part) {
        auto* const added = new Mesh::DocumentObject;
        added->meshProperty->setMesh(kernelOf(soup).release(), true);
        document.addObject(added, part.c_str(), true);
        return added;
    };
    auto* const gear = add(torus(20, 7, 30, 12), name);
    auto* const pin = add(box(1, 2, 3), "pin \xff ß");
    auto* const group = new Mesh::DocumentObjectGroup;
    document.addObject(group, "group", true);
    group->addObject(pin, nullptr);
    pin->setVisible(false);
    pin->setColor(0x12345678);
    gear->rotate({1, 2, 3}, 0.7f, {1, 1, 0}, false);
    gear->translate({12.345f, -6, 1e-3f}, 0);
    RecoveryFolder::make(root)->write(
        recoveryStateOf(document, QString::fromStdString("/a/" + name + ".3mf")));
    return statesOf(document);
}

RecoveryChoice choose(RecoveryChoice::Kind kind, std::size_t place = 0)
{
    return {kind, place};
}

}  // namespace

TEST(Recovery, BringsADocumentBackAsItWas)
{
    Application const application;
    ScratchFolder const folder;
    std::vector<ObjectState> const before = leaveBehind(folder / "r", "gear");
    auto const left = RecoveryFolder::leftOver(folder / "r");
    ASSERT_THAT(left, SizeIs(1));
    RecoveryList const list = left[0]->list();
    EXPECT_EQ(list.title(), "gear.3mf");
    EXPECT_EQ(list.partCount(), 2u);
    EXPECT_EQ(list.triangles, 2 * 30 * 12 + 12u);
    EXPECT_LT(std::abs(list.time.secsTo(QDateTime::currentDateTime())), 60);
    RecoveryFolder::Contents contents = left[0]->read([](int) {});
    EXPECT_THAT(contents.problems, IsEmpty());
    Mesh::Document document;
    addProject(document, std::move(contents.objects));
    EXPECT_EQ(statesOf(document), before);
}

TEST(Recovery, BringsBackByWhichPlanesPartsWereCut)
{
    Application const application;
    ScratchFolder const folder;
    Mesh::Document document;
    std::vector<Mesh::DocumentObject*> parts;
    for (char const* const name : {"bar", "left", "right"}) {
        auto* const part = new Mesh::DocumentObject;
        float const x = parts.size() == 2 ? 20.0f : 0.0f;
        part->meshProperty->setMesh(kernelOf(box(20, 10, 10, {x, 0, 0})).release(), true);
        document.addObject(part, name, true);
        parts.push_back(part);
    }
    Mesh::rememberCut(*parts[0], {{0.6, 0, 0.8}, 1.0 / 3}, *parts[1], *parts[2]);
    parts[2]->translate({1, 2, 3}, 0);
    RecoveryFolder::make(folder / "r")->write(recoveryStateOf(document, {}));
    RecoveryFolder::Contents contents =
        RecoveryFolder::leftOver(folder / "r").at(0)->read([](int) {});
    Mesh::Document found;
    addProject(found, std::move(contents.objects));
    auto const all = found.getMeshObjects();
    ASSERT_THAT(all, SizeIs(3));
    EXPECT_EQ(Mesh::cutMemoryOf(*all[0]).family, 0u);
    EXPECT_NE(Mesh::cutMemoryOf(*all[1]).family, 0u);
    for (std::size_t i = 1; i < 3; ++i) {
        auto const expected = Mesh::cutMemoryOf(*parts[i]), memory = Mesh::cutMemoryOf(*all[i]);
        EXPECT_EQ(memory.family, Mesh::cutMemoryOf(*all[1]).family);
        ASSERT_THAT(memory.faces, SizeIs(1));
        EXPECT_EQ(memory.faces[0].normal, expected.faces[0].normal);
        EXPECT_EQ(memory.faces[0].distance, expected.faces[0].distance);
    }
}

TEST(Recovery, AFolderIsLeftOverOnlyWhenItsProgramIsGone)
{
    ScratchFolder const folder;
    TestDocument scene;
    scene.add(box(1, 2, 3), "part");
    auto running = RecoveryFolder::make(folder / "r");
    running->write(recoveryStateOf(*scene.document, {}));
    EXPECT_THAT(RecoveryFolder::leftOver(folder / "r"), IsEmpty());
    running.reset();
    auto const first = RecoveryFolder::leftOver(folder / "r");
    EXPECT_THAT(first, SizeIs(1));
    EXPECT_THAT(RecoveryFolder::leftOver(folder / "r"), IsEmpty()) << "two programs offer it";
}

TEST(Recovery, FoldersWithoutAStateAndOldOnesGo)
{
    Application const application;
    ScratchFolder const folder;
    RecoveryFolder::make(folder / "r");
    EXPECT_THAT(RecoveryFolder::leftOver(folder / "r"), IsEmpty());
    EXPECT_TRUE(fs::is_empty(folder / "r"));
    leaveBehind(folder / "r", "old");
    for (auto const& kept : fs::directory_iterator(folder / "r"))
        fs::last_write_time(kept.path() / "list.json",
                            fs::file_time_type::clock::now() - std::chrono::hours(24 * 61));
    EXPECT_THAT(RecoveryFolder::leftOver(folder / "r"), IsEmpty());
    EXPECT_TRUE(fs::is_empty(folder / "r"));
    EXPECT_THAT(RecoveryFolder::leftOver(folder / "never"), IsEmpty());
}

TEST(Recovery, APartWhoseFileIsDamagedIsToldAndTheOthersComeBack)
{
    Application const application;
    ScratchFolder const folder;
    leaveBehind(folder / "r", "gear");
    auto const left = RecoveryFolder::leftOver(folder / "r");
    ASSERT_THAT(left, SizeIs(1));
    std::ofstream(left[0]->path() / "1.mesh", std::ios::app) << "more";
    RecoveryFolder::Contents const contents = left[0]->read([](int) {});
    EXPECT_THAT(contents.objects, SizeIs(2));
    ASSERT_THAT(contents.problems, SizeIs(1));
    EXPECT_THAT(contents.problems[0].toStdString(), HasSubstr("1.mesh"));
}

TEST(Recovery, AListThatIsNoListIsRefused)
{
    Application const application;
    ScratchFolder const folder;
    leaveBehind(folder / "r", "gear");
    auto const left = RecoveryFolder::leftOver(folder / "r");
    ASSERT_THAT(left, SizeIs(1));
    fs::path const path = left[0]->path() / "list.json";
    std::string const whole = contentOf(path);
    auto const replaced = [&](std::string const& from, std::string const& to) {
        std::string text = whole;
        text.replace(text.find(from), from.size(), to);
        return text;
    };
    for (std::string const& text :
         {std::string(), std::string("[]"), std::string("{}"), whole.substr(0, whole.size() / 2),
          replaced("\"version\": 1", "\"version\": 2"), replaced("1.mesh", "../1.mesh"),
          replaced("\"matrix\": [", "\"matrix\": [1,")}) {
        std::ofstream(path) << text;
        EXPECT_THROW(left[0]->list(), Formats::FileError) << text.substr(0, 200);
    }
}

TEST(Recovery, PicturesShowWhatIsVisible)
{
    TestDocument scene;
    EXPECT_TRUE(recoveryPicture(recoveryStateOf(*scene.document, {})).isNull());
    auto* const part = scene.add(box(10, 10, 10), "box");
    part->setColor(0xff0000ff);
    QImage const picture = recoveryPicture(recoveryStateOf(*scene.document, {}), {64, 64});
    ASSERT_EQ(picture.size(), QSize(64, 64));
    // A cube seen along its diagonal: three faces of different shade around the middle, nothing in
    // the corners.
    QRgb const top = picture.pixel(32, 16), left = picture.pixel(20, 40),
               right = picture.pixel(44, 40);
    for (QRgb const face : {top, left, right}) {
        EXPECT_GT(qRed(face), 50);
        EXPECT_EQ(qGreen(face), 0);
        EXPECT_EQ(qAlpha(face), 255);
    }
    EXPECT_NE(top, left);
    EXPECT_NE(left, right);
    EXPECT_EQ(qAlpha(picture.pixel(1, 1)), 0);
    EXPECT_EQ(qAlpha(picture.pixel(62, 62)), 0);
    part->setVisible(false);
    EXPECT_TRUE(recoveryPicture(recoveryStateOf(*scene.document, {})).isNull());
}

TEST(AutoSaving, KeepsEachChangeAndGeometryOnce)
{
    RecoveryScene scene;
    scene.finish();
    EXPECT_THAT(scene.keptFiles(), ElementsAre("lock"));
    scene.add(sphere(10, 20, 30), "ball");
    scene.finish();
    EXPECT_THAT(scene.keptFiles(), ElementsAre("1.mesh", "list.json", "lock", "picture.png"));

    scene.document().openTransaction("move");
    scene.part(0).translate({1, 2, 3}, 0);
    scene.document().commitTransaction();
    scene.add(box(1, 2, 3), "box");
    scene.finish();
    EXPECT_THAT(scene.keptFiles(),
                ElementsAre("1.mesh", "2.mesh", "list.json", "lock", "picture.png"));

    scene.document().openTransaction("delete");
    scene.document().removeObject(&scene.part(0));
    scene.document().commitTransaction();
    scene.finish();
    EXPECT_THAT(scene.keptFiles(), ElementsAre("2.mesh", "list.json", "lock", "picture.png"));
    scene.document().undo();
    scene.finish();
    EXPECT_THAT(scene.keptFiles(),
                ElementsAre("2.mesh", "3.mesh", "list.json", "lock", "picture.png"));
}

TEST(AutoSaving, KeepsNothingOnceTheProjectIsSavedOrGivenUp)
{
    RecoveryScene scene;
    scene.add(box(1, 2, 3), "box");
    scene.finish();
    scene.files.answers.projectToSave = scene.files.path("saved.3mf");
    scene.files.files.save();
    scene.finish();
    EXPECT_THAT(scene.keptFiles(), ElementsAre("lock"));
    scene.add(box(1, 2, 3), "box");
    scene.finish();
    EXPECT_THAT(scene.keptFiles(), SizeIs(5)) << "two parts";
    scene.files.answers.unsaved = FileQuestions::Unsaved::Discard;
    scene.files.files.newDocument();
    scene.finish();
    EXPECT_THAT(scene.keptFiles(), ElementsAre("lock"));
    scene.autoSave.reset();
    EXPECT_TRUE(fs::is_empty(scene.root));
}

TEST(AutoSaving, LeavesAStepAloneThatIsUnderWay)
{
    RecoveryScene scene;
    scene.add(box(1, 2, 3), "box");
    scene.finish();
    scene.document().openTransaction("two parts");
    scene.document().removeObject(&scene.part(0));
    // A change of which everybody hears.
    scene.document().setName("under way");
    for (int turn = 0; turn < 30; ++turn)
        scene.files.finish();
    EXPECT_THAT(scene.keptFiles(), SizeIs(4)) << "the part is still kept";
    scene.document().commitTransaction();
    scene.finish();
    EXPECT_THAT(scene.keptFiles(), ElementsAre("list.json", "lock"));
}

TEST(AutoSaving, TellsOnceThatItCannotAndGoesOn)
{
    RecoveryScene scene;
    QStringList problems;
    QObject::connect(scene.autoSave.get(), &AutoSave::failed,
                     [&](QString const& problem) { problems << problem; });
    fs::path const folder = fs::directory_iterator(scene.root)->path();
    fs::path const aside = scene.files.folder / "aside";
    fs::rename(folder, aside);
    scene.add(box(1, 2, 3), "box");
    scene.finish();
    scene.add(box(1, 2, 3), "another");
    scene.finish();
    ASSERT_THAT(problems, SizeIs(1));
    EXPECT_THAT(problems[0].toStdString(), HasSubstr("save the project soon"));
    fs::rename(aside, folder);
    scene.add(box(1, 2, 3), "third");
    scene.finish();
    EXPECT_THAT(problems, SizeIs(1));
    EXPECT_THAT(scene.keptFiles(), SizeIs(6));
}

TEST(RecoveryOffer, WhatIsRecoveredIsUnsavedStillAndKeptAllTheTime)
{
    RecoveryScene scene;
    std::vector<ObjectState> const before = leaveBehind(scene.root, "gear");
    int asked = 0;
    offerRecovery(scene.root, scene.files.files, *scene.autoSave,
                  [&](std::vector<KeptWork> const& works) {
                      ++asked;
                      EXPECT_THAT(works, SizeIs(1));
                      EXPECT_FALSE(works[0].picture.isNull());
                      return choose(RecoveryChoice::Kind::Recover);
                  });
    scene.finish();
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(statesOf(scene.document()), before);
    EXPECT_TRUE(scene.files.files.isModified());
    EXPECT_EQ(scene.files.files.projectFile(), "/a/gear.3mf");
    EXPECT_EQ(std::distance(fs::directory_iterator(scene.root), {}), 1) << "one folder for both";

    scene.add(box(4, 5, 6), "new");
    scene.finish();
    std::vector<ObjectState> const after = statesOf(scene.document());
    // As if killed now: the lock goes with the process, so the folder is copied without it.
    fs::path const copy = scene.files.folder / "copy";
    fs::copy(scene.root, copy, fs::copy_options::recursive);
    auto const left = RecoveryFolder::leftOver(copy);
    ASSERT_THAT(left, SizeIs(1));
    Mesh::Document recovered;
    addProject(recovered, left[0]->read([](int) {}).objects);
    EXPECT_EQ(statesOf(recovered), after);
}

TEST(RecoveryOffer, LaterKeepsAllAndDiscardTakesOneAway)
{
    RecoveryScene scene;
    leaveBehind(scene.root, "first");
    leaveBehind(scene.root, "second");
    std::vector<QString> offered;
    auto const answer = [&](std::vector<RecoveryChoice> choices) {
        offered.clear();
        offerRecovery(scene.root, scene.files.files, *scene.autoSave,
                      [&, n = 0u](std::vector<KeptWork> const& works) mutable {
                          offered.push_back(works[0].list.title());
                          return choices.at(n++);
                      });
    };
    answer({choose(RecoveryChoice::Kind::Later)});
    EXPECT_THAT(offered, ElementsAre("second.3mf")) << "the newest stands first";
    answer({choose(RecoveryChoice::Kind::Discard), choose(RecoveryChoice::Kind::Later)});
    EXPECT_THAT(offered, ElementsAre("second.3mf", "first.3mf"));
    answer({choose(RecoveryChoice::Kind::Discard)});
    EXPECT_THAT(offered, ElementsAre("first.3mf"));
    answer({});
    EXPECT_THAT(offered, IsEmpty());
    EXPECT_FALSE(scene.files.files.isModified());
}

TEST(RecoveryOffer, WhoKeepsTheDocumentLosesNeither)
{
    RecoveryScene scene;
    leaveBehind(scene.root, "gear");
    scene.add(box(1, 2, 3), "box");
    scene.files.answers.unsaved = FileQuestions::Unsaved::Cancel;
    auto const offer = [&](RecoveryChoice::Kind kind) {
        std::size_t count = 0;
        offerRecovery(scene.root, scene.files.files, *scene.autoSave,
                      [&](std::vector<KeptWork> const& works) {
                          count = works.size();
                          return choose(kind);
                      });
        scene.finish();
        return count;
    };
    EXPECT_EQ(offer(RecoveryChoice::Kind::Recover), 1u);
    EXPECT_THAT(scene.files.names(), ElementsAre("box"));
    EXPECT_EQ(offer(RecoveryChoice::Kind::Later), 1u) << "still there";
}
