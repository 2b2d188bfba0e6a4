// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/WindowMenus.h"
#include "tests/app/AppWindow.h"
#include "tests/support/MadeModels.h"
#include "tests/support/SkipReasons.h"

#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

#include <map>
#include <set>

namespace {

/// The entries of the menus that are commands, by name; submenus included.
void collect(QMenu const& menu, std::vector<QAction*>& entries)
{
    for (QAction* const action : menu.actions()) {
        if (action->menu())
            collect(*action->menu(), entries);
        else if (!action->isSeparator() && !action->objectName().isEmpty())
            entries.push_back(action);
    }
}

std::vector<QAction*> menuEntries(QMainWindow const& window)
{
    std::vector<QAction*> entries;
    for (QAction const* const action : window.menuBar()->actions())
        if (action->menu())
            collect(*action->menu(), entries);
    return entries;
}

/// What shows an action's tool tip to the user.
std::string tipOf(QAction const& action)
{
    return action.toolTip().toStdString();
}

}  // namespace

TEST_F(AppWindow, EveryMenuEntryStandsInOnePlace)
{
    std::set<QString> names;
    for (QAction const* const entry : menuEntries(*window))
        EXPECT_TRUE(names.insert(entry->objectName()).second) << entry->objectName().toStdString();
    EXPECT_GE(names.size(), 25u);
}

TEST_F(AppWindow, EveryEntryHasATextAndMenusHaveUniqueLettersOrNone)
{
    std::set<QString> titles;
    for (QAction const* const menu : window->menuBar()->actions()) {
        EXPECT_FALSE(menu->text().isEmpty());
        EXPECT_TRUE(titles.insert(menu->text()).second) << menu->text().toStdString();
    }
    for (QAction const* const entry : menuEntries(*window))
        EXPECT_FALSE(entry->text().isEmpty()) << entry->objectName().toStdString();
}

TEST_F(AppWindow, NoTwoEntriesOfAMenuShareALetter)
{
    std::vector<QList<QAction*>> menus{window->menuBar()->actions()};
    for (QAction const* const title : window->menuBar()->actions())
        menus.push_back(title->menu()->actions());
    for (QList<QAction*> const& entries : menus) {
        std::map<QChar, std::string> owners;
        for (QAction const* const entry : entries) {
            int const mark = entry->text().indexOf('&');
            if (mark < 0)
                continue;
            auto const [owner, isNew] =
                owners.emplace(entry->text().at(mark + 1).toLower(), entry->text().toStdString());
            EXPECT_TRUE(isNew) << owner->second << " and " << entry->text().toStdString();
        }
    }
}

TEST_F(AppWindow, NoTwoCommandsShareAShortcut)
{
    std::map<QString, std::string> owners;
    for (Base::Command* const command : commands().getAllCommands())
        for (QKeySequence const& keys : command->getAction()->getQAction()->shortcuts()) {
            auto const [place, isNew] = owners.emplace(keys.toString(), command->getName());
            EXPECT_TRUE(isNew) << keys.toString().toStdString() << ": " << place->second << " and "
                               << command->getName();
        }
    EXPECT_EQ(owners["C"], "Std_zCut");
    EXPECT_EQ(owners["?"], "Std_Shortcuts");
}

TEST_F(AppWindow, EveryCommandWithAShortcutIsInAMenu)
{
    std::set<QString> inMenus;
    for (QAction const* const entry : menuEntries(*window))
        inMenus.insert(entry->objectName());
    for (Base::Command* const command : commands().getAllCommands()) {
        if (!command->getAction()->shortcut().isEmpty()) {
            EXPECT_TRUE(inMenus.count(QString::fromStdString(command->getName())))
                << command->getName();
        }
    }
}

TEST_F(AppWindow, WhatThePlugInCutsWithIsInTheMenus)
{
    std::set<QString> inMenus;
    for (QAction const* const entry : menuEntries(*window))
        inMenus.insert(entry->objectName());
    for (char const* const name :
         {"Std_zCut", "Std_Sectioncut", "FreecutPlane3Pts", "FreecutPlaneTangent",
          "FreecutPlaneVertical", "FreecutPlaneXYPlane", "FreecutPlaneXZPlane",
          "FreecutPlaneYZPlane", "Std_Polygoncut", "FreecutPolygon", "FreecutCylinder",
          "FreecutCuboid"})
        EXPECT_TRUE(inMenus.count(name)) << name;
    // These make sense beside a drawn polygon alone, or are buttons of its dialog.
    for (char const* const name : {"Remove Point", "Delete all teeth", "PolygoncutReset"})
        EXPECT_FALSE(inMenus.count(name)) << name;
}

TEST_F(AppWindow, DisabledEntriesSayWhyInTheirToolTips)
{
    QCoreApplication::processEvents();
    std::vector<QAction*> entries = menuEntries(*window);
    int disabled = 0;
    for (QAction const* const entry : entries) {
        if (entry->isEnabled())
            continue;
        ++disabled;
        // The reason is a sentence on a line of its own.
        EXPECT_NE(tipOf(*entry).find('\n'), std::string::npos) << entry->objectName().toStdString();
        EXPECT_EQ(tipOf(*entry).back(), '.') << entry->objectName().toStdString();
    }
    EXPECT_GE(disabled, 10);
    EXPECT_NE(tipOf(*action("Std_zCut")).find("Open a part first."), std::string::npos);
    EXPECT_NE(tipOf(*action("Std_Undo")).find("nothing to undo"), std::string::npos);
}

TEST_F(AppWindow, TheReasonGoesWhenTheCommandMakesSense)
{
    Mesh::DocumentObject* const part = test->add(box(10, 10, 10), "box");
    QCoreApplication::processEvents();
    EXPECT_FALSE(action("Std_Delete")->isEnabled());
    EXPECT_NE(tipOf(*action("Std_Delete")).find("Select a part first."), std::string::npos);
    part->setSelected(true, true, true);
    QCoreApplication::processEvents();
    EXPECT_TRUE(action("Std_Delete")->isEnabled());
    EXPECT_EQ(tipOf(*action("Std_Delete")).find('\n'), std::string::npos);
    EXPECT_TRUE(action("Std_zCut")->isEnabled());
}

TEST_F(AppWindow, MenusShowToolTips)
{
    for (QAction const* const entry : window->menuBar()->actions())
        EXPECT_TRUE(entry->menu()->toolTipsVisible()) << entry->text().toStdString();
}

TEST_F(AppWindow, UndoNamesItsStep)
{
    test->add(box(10, 10, 10), "box")->setSelected(true, true, true);
    trigger("Std_Hide");
    QCoreApplication::processEvents();
    EXPECT_EQ(action("Std_Undo")->text().toStdString(), "&Undo: Hide");
    trigger("Std_Undo");
    QCoreApplication::processEvents();
    EXPECT_EQ(action("Std_Undo")->text().toStdString(), "&Undo");
    EXPECT_EQ(action("Std_Redo")->text().toStdString(), "&Redo: Hide");
}

TEST_F(AppWindow, LooksAsItShould)
{
    if (!hasDisplay())
        GTEST_SKIP() << displayIsMissing;
    Mesh::DocumentObject* const real = addFile("armadillo-86k.stl");
    Mesh::DocumentObject* const part = real ? real : test->add(branchedFigure(), "figure");
    show();
    window->view().OnViewType(6);
    window->view().fitAll();
    part->setSelected(true, true, true);
    takePicture("part");
    EXPECT_TRUE(window->view().isValid());
}

TEST_F(AppWindow, ResetLayoutBringsMovedAndClosedPanelsBack)
{
    show();
    auto* const parts = window->findChild<QDockWidget*>("Parts");
    auto* const log = window->findChild<QDockWidget*>("Log");
    ASSERT_TRUE(parts && log);
    window->addDockWidget(Qt::RightDockWidgetArea, parts);
    parts->hide();
    log->show();
    trigger("Std_ResetLayout");
    EXPECT_EQ(window->dockWidgetArea(parts), Qt::LeftDockWidgetArea);
    EXPECT_FALSE(parts->isHidden());
    EXPECT_TRUE(log->isHidden());
}

TEST_F(AppWindow, WhatCutsHasABarOfItsOwnThatComesBackWhereItWas)
{
    auto* const bar = window->findChild<QToolBar*>("CutToolBar");
    ASSERT_TRUE(bar);
    EXPECT_EQ(bar->windowTitle(), "Cut");
    EXPECT_TRUE(bar->actions().contains(action("Std_zCut")));
    EXPECT_FALSE(
        window->findChild<QToolBar*>("MainToolBar")->actions().contains(action("Std_zCut")));
    EXPECT_TRUE(window->menus().windowMenu()->actions().contains(bar->toggleViewAction()));
    ASSERT_NO_FATAL_FAILURE(show());
    bar->toggleViewAction()->trigger();
    window->addToolBar(Qt::LeftToolBarArea, bar);
    bar->hide();
    window->close();
    start();
    auto const* const again = window->findChild<QToolBar*>("CutToolBar");
    EXPECT_TRUE(again->isHidden());
    EXPECT_EQ(again->orientation(), Qt::Vertical);
}
