// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/modules/Modules.h"
#include "app/window/NoticeBar.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "tests/app/AppWindow.h"
#include "tests/support/Places.h"

#include <QFile>
#include <QMenuBar>
#include <QToolButton>

namespace {

QString brokenLibrary(QTemporaryDir const& folder, QString const& name = "broken.so")
{
    QString const path = folder.filePath(name);
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write("no library at all");
    return path;
}

}  // namespace

TEST(Modules, AMissingLibraryIsAMessageThatSaysWhatToDo)
{
    Application const application;
    Modules modules;
    EXPECT_FALSE(modules.load("/nowhere/module.so"));
    ASSERT_EQ(modules.messages().size(), 1);
    EXPECT_TRUE(modules.messages().front().contains("/nowhere/module.so"));
    EXPECT_TRUE(modules.messages().front().contains("--plugin"));
}

TEST(Modules, ABrokenLibraryIsAMessageThatNamesIt)
{
    QTemporaryDir const folder;
    Application const application;
    Modules modules;
    EXPECT_FALSE(modules.load(brokenLibrary(folder)));
    ASSERT_EQ(modules.messages().size(), 1);
    EXPECT_TRUE(modules.messages().front().contains("broken.so"));
}

TEST(Modules, ALibraryThatIsNoModuleIsAMessage)
{
    Application const application;
    Modules modules;
    EXPECT_FALSE(modules.load(QString::fromStdString(builtPath("libMellHost.so"))));
    EXPECT_EQ(modules.messages().size(), 1);
}

TEST(Modules, ThePlugInLiesBesideThePrograms)
{
    Application const application;
    Modules modules;
    EXPECT_TRUE(modules.load(Modules::installedLibrary()));
    EXPECT_TRUE(modules.messages().isEmpty());
}

TEST(Modules, ABrokenOneOfOthersSaysNothingOfTheCuttingCommands)
{
    QTemporaryDir const folder;
    brokenLibrary(folder, "libBroken.so");
    brokenLibrary(folder, "notes.txt");
    Application const application;
    Modules modules;
    modules.loadOthers(folder.path());
    ASSERT_EQ(modules.messages().size(), 1);
    EXPECT_TRUE(modules.messages().front().contains("libBroken.so"));
    EXPECT_FALSE(modules.messages().front().contains("--plugin"));
    EXPECT_TRUE(modules.commandsOfOthers().empty());
}

TEST(Modules, AFolderThatIsNotThereHasNoModules)
{
    Application const application;
    Modules modules;
    modules.loadOthers("/nowhere/modules");
    EXPECT_TRUE(modules.messages().isEmpty());
}

TEST(Modules, CommandsOfOthersStandInAMenuOfTheirOwn)
{
    QTemporaryDir const settings;
    QSettings::setPath(g_AppSettingFormat, QSettings::UserScope, settings.path());
    TestDocument test;
    test.add(box(10, 10, 10), "box");
    OrbeWindow window;
    auto const titles = [&window] {
        QStringList texts;
        for (QAction const* const action : window.menuBar()->actions())
            texts << action->text();
        return texts;
    };
    EXPECT_FALSE(titles().contains("&Modules"));
    Modules modules;
    modules.loadOthers(QString::fromStdString(builtPath("example_modules")));
    EXPECT_TRUE(modules.messages().isEmpty()) << modules.messages().join("; ").toStdString();
    EXPECT_EQ(modules.commandsOfOthers(), std::vector<std::string>{"VertexCount_Count"});
    window.commandsAdded(modules.commandsOfOthers());
    EXPECT_TRUE(titles().contains("&Modules"));
    std::vector<std::string> lines;
    Base::ConsoleSingleton::Instance().setListener(
        [&lines](std::string const& line) { lines.push_back(line); });
    test.application.commandManager().getCommandByName("VertexCount_Count")->invoke(0);
    Base::ConsoleSingleton::Instance().setListener({});
    EXPECT_EQ(lines, std::vector<std::string>{"8 vertices"});
}

TEST(Modules, TheWindowWorksWithoutAModule)
{
    QTemporaryDir const settings;
    QSettings::setPath(g_AppSettingFormat, QSettings::UserScope, settings.path());
    TestDocument test;
    OrbeWindow window;
    window.addNotice("The module is missing.");
    window.show();
    EXPECT_TRUE(window.notices().isVisible());
    EXPECT_FALSE(test.application.commandManager().getCommandByName("Std_zCut"));
    test.add(box(10, 10, 10), "box")->setSelected(true, true, true);
    QCoreApplication::processEvents();
    test.application.commandManager().getCommandByName("Std_Hide")->invoke(0);
    EXPECT_EQ(test.document->undoNames(), std::vector<std::string>{"Hide"});
    window.notices().findChild<QToolButton*>("DismissNotice")->click();
    EXPECT_FALSE(window.notices().isVisible());
}
