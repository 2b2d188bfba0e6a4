// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/HostCommand.h"
#include "app/commands/SavedViews.h"
#include "app/recovery/RecoveryList.h"
#include "host/formats/ProjectXml.h"
#include "tests/app/AnsweredDialog.h"
#include "tests/app/AppWindow.h"
#include "tests/app/FilesScene.h"

#include <QInputDialog>
#include <QMenu>

// Views that a person keeps by name.
namespace {

using Formats::ProjectObject;

class KeptViews : public AppWindow
{
protected:
    void SetUp() override
    {
        AppWindow::SetUp();
        test->add(box(20, 30, 40), "block");
        view().OnViewType(6);
        view().fitAll();
    }

    Mesh::GLView& view() const { return window->view(); }
    SavedViews& views() const { return *window->findChild<SavedViews*>(); }
    QMatrix4x4 looks() const
    {
        GLCamera const& camera = *view().getCamera();
        return camera.getProjectionMatrix() * camera.getModelViewMatrix();
    }
    /// Whether a point is where it was on the screen, and as large.
    static bool isSame(QMatrix4x4 const& a, QMatrix4x4 const& b)
    {
        for (QVector3D const& point :
             {QVector3D(0, 0, 0), QVector3D(20, 0, 0), QVector3D(0, 30, 0), QVector3D(3, 4, 40)}) {
            QVector3D const p = a.map(point), q = b.map(point);
            if (std::hypot(p.x() - q.x(), p.y() - q.y()) > 1e-4)
                return false;
        }
        return true;
    }
    void lookElsewhere() const
    {
        view().getCamera()->turn({1, 2, 3}, 0.9);
        view().getCamera()->pan(7, -5);
        view().getCamera()->zoom(0.4);
    }
    QStringList offered() const
    {
        QStringList texts;
        for (QMenu const* const menu : window->findChildren<QMenu*>())
            if (menu->title() == "&Kept Views")
                for (QAction const* const entry : menu->actions())
                    if (!entry->isSeparator() && entry->isEnabled())
                        texts << QString(entry->text()).remove('&');
        return texts;
    }
};

ProjectObject viewNamed(std::string const& name)
{
    ProjectObject view;
    view.kind = ProjectObject::Kind::View;
    view.name = name;
    view.camera = {{0.6, 0, 0.8}, {-0.8, 0, 0.6}, {1.0 / 3, 2, -7}, 1e-3, true};
    return view;
}

}  // namespace

TEST_F(KeptViews, AreGoneBackTo)
{
    view().getCamera()->set_pivot({20, 30, 40});
    QMatrix4x4 const iso = looks();
    views().save("a & b");
    lookElsewhere();
    QMatrix4x4 const other = looks();
    ASSERT_FALSE(isSame(iso, other));
    views().save("other");
    trigger("Std_SavedView1");
    EXPECT_TRUE(isSame(looks(), iso));
    trigger("Std_SavedView2");
    EXPECT_TRUE(isSame(looks(), other));
    // With what projection too.
    trigger("Std_Perspective");
    QMatrix4x4 const perspective = looks();
    views().save("other");
    EXPECT_EQ(views().names(), (QStringList{"a & b", "other"}));
    trigger("Std_SavedView1");
    EXPECT_TRUE(isSame(looks(), iso));
    trigger("Std_SavedView2");
    EXPECT_TRUE(isSame(looks(), perspective));
    EXPECT_TRUE(test->document->isModified());
    EXPECT_TRUE(test->document->undoNames().empty());
}

TEST_F(KeptViews, StandInTheMenuByTheirNames)
{
    EXPECT_EQ(offered(), QStringList{"Keep This View..."});
    AnsweredDialog<QInputDialog> name([](QInputDialog& dialog) {
        EXPECT_EQ(dialog.textValue(), "View 1");
        dialog.setTextValue(" a & b ");
    });
    trigger("Std_SaveView");
    ASSERT_TRUE(name.hasCome());
    EXPECT_EQ(views().names(), QStringList{"a & b"});
    EXPECT_EQ(offered(), (QStringList{"Keep This View...", "a  b", "Remove a View..."}));
    for (int i = 2; i <= SavedViews::most + 1; ++i)
        views().save(views().freeName());
    EXPECT_EQ(views().names().size(), SavedViews::most);
    EXPECT_FALSE(whyInactive(*commands().getCommandByName("Std_SaveView")).isEmpty());
    AnsweredDialog<QInputDialog> choice(
        [](QInputDialog& dialog) { dialog.setTextValue("View 3"); });
    trigger("Std_RemoveView");
    ASSERT_TRUE(choice.hasCome());
    EXPECT_FALSE(views().names().contains("View 3"));
    EXPECT_EQ(views().names().size(), SavedViews::most - 1);
    EXPECT_EQ(views().freeName(), "View 3");
}

TEST(KeptViewsInFiles, AreSavedWithTheProjectAndEndWithTheDocument)
{
    FilesScene scene;
    scene.scene.add(box(1, 2, 3), "a");
    DocumentFiles::Views const views{viewNamed("top <1>"), viewNamed("b")};
    scene.files.setViews(views);
    scene.answers.projectToSave = scene.path("p.3mf");
    scene.files.save();
    scene.finish();
    EXPECT_FALSE(scene.files.isModified());
    scene.files.newDocument();
    EXPECT_TRUE(scene.files.views().empty());
    scene.files.openFiles({scene.path("p.3mf")});
    scene.finish();
    EXPECT_EQ(scene.names(), std::vector<std::string>{"a"});
    ASSERT_EQ(scene.files.views().size(), 2u);
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(scene.files.views()[i].name, views[i].name);
        EXPECT_EQ(scene.files.views()[i].camera, views[i].camera);
    }
    EXPECT_FALSE(scene.files.isModified());
    scene.files.setViews({});
    EXPECT_TRUE(scene.files.isModified());
}

TEST(KeptViewsInFiles, AreKeptForTheTimeAfterACrash)
{
    RecoveryList list;
    list.entries.push_back({viewNamed("b")});
    RecoveryList const read = parseRecoveryText(recoveryText(list), "list");
    ASSERT_EQ(read.entries.size(), 1u);
    EXPECT_EQ(read.entries[0].look.kind, ProjectObject::Kind::View);
    EXPECT_EQ(read.entries[0].look.name, "b");
    EXPECT_EQ(read.entries[0].look.camera, list.entries[0].look.camera);
}

TEST(KeptViewsInFiles, WhatNoCameraCanBeIsPassedOver)
{
    auto const count = [](char const* camera) {
        std::string const text =
            "<project xmlns=\"urn:orbe:project:1\" version=\"1\"><view "
            "name=\"n\" camera=\"" +
            std::string(camera) + "\"/></project>";
        return Formats::parseProjectXml(text, "x").size();
    };
    EXPECT_EQ(count("0 0 1 0 1 0 5 6 7 20 0"), 1u);
    for (char const* const wrong :
         {"", "0 0 1 0 1 0 5 6 7 20", "0 0 2 0 1 0 5 6 7 20 0", "0 0 1 0 0 0 5 6 7 20 0",
          "0 0 1 0 1 0 5 6 7 0 0", "0 0 1 0 1 0 5 6 nan 20 0"})
        EXPECT_EQ(count(wrong), 0u) << wrong;
}
