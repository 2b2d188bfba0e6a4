// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/FileCommands.h"
#include "app/commands/HostCommand.h"
#include "app/files/ExportDialog.h"
#include "app/files/FileDrop.h"
#include "app/files/RecentMenu.h"
#include "app/files/WindowTitle.h"
#include "app/jobs/JobGuard.h"
#include "platform/ui/Action.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/MainWindow.h"
#include "tests/app/FilesScene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDropEvent>
#include <QMimeData>
#include <QRadioButton>
#include <QUrl>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

template <typename Event>
bool isTaken(QWidget& target, QMimeData const& data)
{
    Event event(QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                Qt::NoModifier);
    QApplication::sendEvent(&target, &event);
    return event.isAccepted();
}

/// As the application's window does it.
class AskingWindow : public MainWindow
{
public:
    explicit AskingWindow(DocumentFiles& files) : m_files(files) {}

protected:
    void closeEvent(QCloseEvent* event) override { event->setAccepted(m_files.mayDiscard()); }

private:
    DocumentFiles& m_files;
};

Base::Command& command(FilesScene& scene, char const* name)
{
    return *scene.scene.application.commandManager().getCommandByName(name);
}

}  // namespace

TEST(RecentFiles, HoldTheLastTenNewestFirst)
{
    ScratchSettings const settings;
    RecentFiles recent;
    for (int i = 0; i < 14; ++i)
        recent.add(QString("/parts/größe %1.stl").arg(i));
    recent.add("/parts/größe 9.stl");
    ASSERT_EQ(recent.files().size(), 10);
    EXPECT_EQ(recent.files()[0], "/parts/größe 9.stl");
    EXPECT_EQ(recent.files()[1], "/parts/größe 13.stl");
    EXPECT_EQ(RecentFiles().files(), recent.files());
    recent.remove("/parts/größe 9.stl");
    EXPECT_EQ(recent.files().size(), 9);
    recent.clear();
    EXPECT_THAT(recent.files(), IsEmpty());
}

TEST(RecentFiles, ManyAtOnceStandInTheirOrderAndAreToldOnce)
{
    ScratchSettings const settings;
    RecentFiles recent;
    recent.add("/parts/old.stl");
    recent.add("/parts/2.stl");
    int told = 0;
    QObject::connect(&recent, &RecentFiles::changed, [&] { ++told; });
    recent.addAll({"/parts/1.stl", "/parts/2.stl", "/parts/3.stl"});
    EXPECT_EQ(told, 1);
    EXPECT_EQ(recent.files(),
              QStringList({"/parts/1.stl", "/parts/2.stl", "/parts/3.stl", "/parts/old.stl"}));
    QStringList many;
    for (int i = 0; i < 500; ++i)
        many.push_back(QString("/parts/many %1.stl").arg(i));
    recent.addAll(many);
    EXPECT_EQ(told, 2);
    EXPECT_EQ(recent.files(), many.mid(0, 10));
}

TEST(RecentFiles, SettingsWithoutSenseAreLeftOut)
{
    ScratchSettings const settings;
    QStringList odd = {"", "relative.stl", "/a.stl", "/a.stl"};
    for (int i = 0; i < 20; ++i)
        odd.push_back(QString("/%1.stl").arg(i));
    QSettings(g_AppSettingFormat, QSettings::UserScope, QCoreApplication::applicationName(),
              getSettingName())
        .setValue("/Files/recent", odd);
    EXPECT_EQ(RecentFiles().files().size(), 10);
    EXPECT_EQ(RecentFiles().files()[0], "/a.stl");
    EXPECT_EQ(RecentFiles().files()[1], "/0.stl");
}

TEST(RecentMenu, OpensWhatItShows)
{
    FilesScene scene;
    RecentMenu menu(scene.files);
    EXPECT_FALSE(menu.menuAction()->isEnabled());
    EXPECT_EQ(menu.menuAction()->toolTip(), "No file was opened yet.");
    scene.files.recentFiles().add(scene.partFile("fish & chips.stl", box(1, 1, 1)));
    EXPECT_TRUE(menu.menuAction()->isEnabled());
    emit menu.aboutToShow();
    ASSERT_EQ(menu.actions().size(), 3);
    EXPECT_EQ(menu.actions()[0]->text(), "&1  fish && chips.stl");
    menu.actions()[0]->trigger();
    scene.finish();
    EXPECT_THAT(scene.names(), ElementsAre("fish & chips"));
    {
        JobGuard::Hold const hold;
        QCoreApplication::processEvents();
        EXPECT_FALSE(menu.menuAction()->isEnabled());
    }
    emit menu.aboutToShow();
    menu.actions().back()->trigger();
    EXPECT_FALSE(menu.menuAction()->isEnabled());
}

TEST(FileDrop, FilesAreOpenedAndOtherThingsAreNot)
{
    FilesScene scene;
    QWidget target;
    FileDrop const drop(&target, target, scene.files);
    EXPECT_TRUE(target.acceptDrops());
    QMimeData text;
    text.setText("no file");
    EXPECT_FALSE(isTaken<QDragEnterEvent>(target, text));
    QMimeData folder;
    folder.setUrls({QUrl::fromLocalFile(scene.path("")), QUrl("https://example.org/a.stl")});
    EXPECT_FALSE(isTaken<QDragEnterEvent>(target, folder));
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(scene.partFile("a.stl", box(1, 1, 1))),
                   QUrl::fromLocalFile(scene.partFile("b.obj", box(1, 1, 1)))});
    EXPECT_TRUE(isTaken<QDragEnterEvent>(target, files));
    EXPECT_TRUE(isTaken<QDragMoveEvent>(target, files));
    {
        JobGuard::Hold const hold;
        EXPECT_FALSE(isTaken<QDragEnterEvent>(target, files));
        EXPECT_FALSE(isTaken<QDropEvent>(target, files));
    }
    scene.finish();
    EXPECT_THAT(scene.names(), IsEmpty());
    EXPECT_TRUE(isTaken<QDragEnterEvent>(target, files));
    EXPECT_TRUE(isTaken<QDropEvent>(target, files));
    EXPECT_THAT(scene.names(), IsEmpty());
    scene.finish();
    EXPECT_THAT(scene.names(), ElementsAre("a", "b"));
}

TEST(FileDrop, LightsTheViewWhileFilesHover)
{
    FilesScene scene;
    QWidget target;
    QWidget view(&target);
    view.resize(300, 200);
    FileDrop const drop(&target, view, scene.files);
    target.show();
    auto const* const light = view.findChild<QWidget*>("DropHighlight");
    ASSERT_TRUE(light);
    auto const leave = [&] {
        QDragLeaveEvent event;
        QCoreApplication::sendEvent(&target, &event);
    };
    EXPECT_FALSE(light->isVisible());
    QMimeData text;
    text.setText("no file");
    EXPECT_FALSE(isTaken<QDragEnterEvent>(target, text));
    EXPECT_FALSE(light->isVisible());
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(scene.partFile("a.stl", box(1, 1, 1)))});
    EXPECT_TRUE(isTaken<QDragEnterEvent>(target, files));
    EXPECT_TRUE(light->isVisible());
    EXPECT_EQ(light->geometry(), view.rect());
    leave();
    EXPECT_FALSE(light->isVisible());
    EXPECT_TRUE(isTaken<QDragEnterEvent>(target, files));
    EXPECT_TRUE(isTaken<QDropEvent>(target, files));
    EXPECT_FALSE(light->isVisible());
    {
        JobGuard::Hold const hold;
        EXPECT_FALSE(isTaken<QDragEnterEvent>(target, files));
        EXPECT_FALSE(light->isVisible());
    }
    scene.finish();
    EXPECT_THAT(scene.names(), ElementsAre("a"));
}

TEST(WindowTitle, FollowsNameAndModifiedFlag)
{
    FilesScene scene;
    QWidget window;
    WindowTitle const title(&window, scene.files);
    EXPECT_TRUE(window.windowTitle().startsWith("Untitled[*] - "));
    EXPECT_FALSE(window.isWindowModified());
    scene.scene.add(box(1, 1, 1), "a");
    scene.document()->setModified(true);
    EXPECT_TRUE(window.isWindowModified());
    scene.answers.projectToSave = scene.path("plate.3mf");
    scene.files.save();
    scene.finish();
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_TRUE(window.windowTitle().startsWith("plate.3mf[*] - "));
}

TEST(FileCommands, SayWhatIsMissingAndDoTheirWork)
{
    FilesScene scene;
    registerFileCommands(scene.scene.application.commandManager(), scene.files);
    EXPECT_EQ(whyInactive(command(scene, "Std_Export")), "Open a part first.");
    EXPECT_EQ(whyInactive(command(scene, "Std_ExportSelected")), "Open a part first.");
    EXPECT_TRUE(command(scene, "Std_Save").isActive());
    scene.answers.filesToOpen = QStringList{scene.partFile("a.stl", box(1, 1, 1))};
    command(scene, "Std_Open").invoke(0);
    EXPECT_FALSE(command(scene, "Std_Open").isActive());
    EXPECT_FALSE(command(scene, "Std_New").isActive());
    EXPECT_TRUE(command(scene, "Std_Quit").isActive());
    scene.finish();
    EXPECT_THAT(scene.names(), ElementsAre("a"));
    EXPECT_TRUE(command(scene, "Std_Export").isActive());
    EXPECT_EQ(whyInactive(command(scene, "Std_ExportSelected")), "Select a part first.");
    scene.document()->getMeshObjects()[0]->setSelected(true, true, true);
    EXPECT_TRUE(command(scene, "Std_ExportSelected").isActive());
    scene.answers.plan = ExportPlan{scene.path("out.stl"), "stl", false};
    command(scene, "Std_ExportSelected").invoke(0);
    scene.finish();
    scene.answers.projectToSave = scene.path("plate.3mf");
    command(scene, "Std_SaveAs").invoke(0);
    scene.finish();
    EXPECT_THAT(scene.folder.names(), ElementsAre("a.stl", "out.stl", "plate.3mf"));
    command(scene, "Std_New").invoke(0);
    EXPECT_THAT(scene.names(), IsEmpty());
}

TEST(FileCommands, QuitClosesTheWindowUnlessTheUserThinksBetterOfIt)
{
    FilesScene scene;
    registerFileCommands(scene.scene.application.commandManager(), scene.files);
    AskingWindow window(scene.files);
    window.setAttribute(Qt::WA_QuitOnClose, false);
    window.show();
    scene.scene.add(box(1, 1, 1), "a");
    scene.document()->setModified(true);
    command(scene, "Std_Quit").invoke(0);
    EXPECT_TRUE(window.isVisible());
    scene.answers.unsaved = FileQuestions::Unsaved::Discard;
    command(scene, "Std_Quit").invoke(0);
    EXPECT_FALSE(window.isVisible());
}

TEST(ExportDialog, RemembersWhatWasAcceptedAndFallsBackOnNonsense)
{
    ScratchSettings const settings;
    QSettings known(g_AppSettingFormat, QSettings::UserScope, QCoreApplication::applicationName(),
                    getSettingName());
    known.setValue("/Export/format", "no such format");
    known.sync();
    {
        ExportDialog dialog({"plate", 3, {}}, nullptr);
        EXPECT_EQ(dialog.format(), "stl");
        EXPECT_TRUE(dialog.isOneFilePerPart());
        auto* const formats = dialog.findChild<QComboBox*>();
        formats->setCurrentIndex(formats->findData("ply"));
        dialog.findChildren<QRadioButton*>().last()->click();
        dialog.accept();
    }
    EXPECT_EQ(ExportDialog({"plate", 3, {}}, nullptr).format(), "ply");
    EXPECT_TRUE(ExportDialog({"plate", 3, {}}, nullptr).isOneFilePerPart());
    EXPECT_FALSE(ExportDialog({"gear", 1, {}}, nullptr).isOneFilePerPart());
}
