// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/Action.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/MellMessageBox.h"
#include "platform/ui/MellViewSlider.h"
#include "tests/module/LoadedModule.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QObject>
#include <QPushButton>
#include <QTimer>

namespace {

using Names = std::vector<std::string>;

constexpr char const* toolCommands[] = {
    "FreecutPlane3Pts",    "FreecutPlaneTangent", "FreecutPlaneVertical",
    "FreecutPlaneXYPlane", "FreecutPlaneXZPlane", "FreecutPlaneYZPlane",
    "FreecutPolygon",      "FreecutCylinder",     "FreecutCuboid"};

Soup sidelessBox()
{
    Soup soup = box(2, 3, 4);
    soup.triangles.erase(soup.triangles.begin() + 4, soup.triangles.begin() + 6);
    return soup;
}

}  // namespace

TEST(Commands, DialogCommandsNeedADocumentWithAPart)
{
    LoadedModule module;
    module.test.application.setActiveDocument(nullptr);
    EXPECT_FALSE(module.command("Std_Sectioncut")->isActive());
    EXPECT_FALSE(module.command("Std_Polygoncut")->isActive());
    module.test.application.setActiveDocument(module.test.document);
    EXPECT_FALSE(module.command("Std_Sectioncut")->isActive());
    EXPECT_FALSE(module.command("Std_Polygoncut")->isActive());
    module.test.add(box(1, 1, 1), "part");
    EXPECT_TRUE(module.command("Std_Sectioncut")->isActive());
    EXPECT_TRUE(module.command("Std_Polygoncut")->isActive());
}

TEST(Commands, TheZCutNeedsASelectedObject)
{
    LoadedModule module;
    Base::Command* const command = module.command("Std_zCut");
    auto* const part = module.test.add(box(1, 1, 1), "part");
    EXPECT_FALSE(command->isActive());
    part->setSelected(true, true, false);
    EXPECT_TRUE(command->isActive());
    module.test.application.setActiveDocument(nullptr);
    EXPECT_FALSE(command->isActive());
}

TEST(Commands, AllOthersAreActiveAlways)
{
    LoadedModule module;
    module.test.application.setActiveDocument(nullptr);
    for (Base::Command* const command : module.test.application.commandManager().getAllCommands())
        if (command->getGroupName() != "Mesh") {
            EXPECT_TRUE(command->isActive()) << command->getName();
        }
}

TEST(Commands, TheZCutCutsTheSelectedPartsAtTheSlidersHeight)
{
    LoadedModule module;
    TestDocument& test = module.test;
    auto* const cut = test.add(box(2, 3, 4), "cut");
    test.add(box(2, 3, 4, {9, 0, 0}), "left alone");
    cut->setSelected(true, true, false);
    MainWindow::getViewSlider()->setHeight(1);
    module.command("Std_zCut")->invoke(0);
    EXPECT_EQ(test.names(), (Names{"left alone", "cut_cut1", "cut_cut2"}));
    EXPECT_NEAR(volumeOf(soupOf(test.document->getMeshObjects()[2])), 6, 1e-5);
    ASSERT_TRUE(test.document->undo());
    EXPECT_EQ(test.names(), (Names{"cut", "left alone"}));
    ASSERT_TRUE(test.document->redo());
    EXPECT_EQ(test.names(), (Names{"left alone", "cut_cut1", "cut_cut2"}));
}

TEST(Commands, TheZCutWithoutASelectionDoesNothing)
{
    LoadedModule module;
    module.test.add(box(2, 3, 4), "part");
    module.command("Std_zCut")->invoke(0);
    EXPECT_EQ(module.test.names(), Names{"part"});
    module.test.application.setActiveDocument(nullptr);
    module.command("Std_zCut")->invoke(0);
    EXPECT_EQ(module.test.names(), Names{"part"});
}

TEST(Commands, AZCutThatFailsShowsTheMessageAndChangesNothing)
{
    LoadedModule module;
    auto* const part = module.test.add(sidelessBox(), "open");
    part->setSelected(true, true, false);
    MainWindow::getViewSlider()->setHeight(2);
    QString title;
    QString text;
    QString details;
    QStringList buttons;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        auto* const message = qobject_cast<MellMessageBox*>(QApplication::activeModalWidget());
        if (!message)
            return;
        title = message->windowTitle();
        text = message->text();
        details = message->details();
        for (QPushButton const* const button : message->findChildren<QPushButton*>())
            buttons += button->text();
        message->close();
    });
    watch.start(5);
    module.command("Std_zCut")->invoke(0);
    EXPECT_EQ(title, "Attention");
    EXPECT_EQ(text, "An error occurred in triangulate.");
    // There is no view to show the place in.
    EXPECT_EQ(buttons, (QStringList{"OK", "Repair and Cut Again"}));
    EXPECT_TRUE(details.startsWith("open: ")) << details.toStdString();
    EXPECT_EQ(module.test.names(), Names{"open"});
    EXPECT_FALSE(module.test.document->isModified());
}

TEST(Commands, ToolCommandsMakeCheckableActionsUnderTheMainWindow)
{
    MainWindow window;
    LoadedModule const module;
    for (char const* name : toolCommands) {
        Base::Command* const command = module.command(name);
        EXPECT_NE(dynamic_cast<QObject*>(command), nullptr) << name;
        Base::Action* const action = command->getAction();
        ASSERT_NE(action, nullptr) << name;
        EXPECT_EQ(action->parent(), &window) << name;
        EXPECT_TRUE(action->getQAction()->isCheckable()) << name;
        EXPECT_EQ(action->text(), command->getMenuText()) << name;
    }
}

TEST(Commands, OtherActionsAreNotCheckable)
{
    MainWindow const window;
    LoadedModule const module;
    for (char const* name : {"Std_Sectioncut", "Std_zCut", "Remove Point", "PolygoncutReset"})
        EXPECT_FALSE(module.command(name)->getAction()->getQAction()->isCheckable()) << name;
}

TEST(Commands, WithoutDialogOrToolTheyEndWithoutEffect)
{
    LoadedModule module;
    module.test.add(box(1, 1, 1), "part");
    for (Base::Command* const command : module.test.application.commandManager().getAllCommands())
        if (command->getName() != "Std_zCut")
            command->invoke(0);
    EXPECT_EQ(module.test.names(), Names{"part"});
    EXPECT_FALSE(module.test.document->isModified());
}
