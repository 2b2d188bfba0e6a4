// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/HistoryList.h"
#include "app/panels/LogConsole.h"
#include "app/panels/LogRecorder.h"
#include "app/panels/PartInformation.h"
#include "app/panels/PlacementPanel.h"
#include "app/panels/PreferencesDialog.h"
#include "app/partlist/PartList.h"
#include "app/partlist/PartMenu.h"
#include "app/view/ViewAppearance.h"
#include "app/view/ViewPreferences.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/ui/Settings.h"
#include "platform/ui/ThemeSwitch.h"
#include "platform/view/MeshGLView.h"
#include "tests/app/PartDocument.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QSet>
#include <QTemporaryDir>

namespace {

/// Pictures of all panels in a theme, in the build folder for people to look at.
class PanelPictures : public testing::TestWithParam<ThemeSwitch::Choice>
{
protected:
    PanelPictures()
    {
        QSettings::setPath(g_AppSettingFormat, QSettings::UserScope, folder.path());
        QCoreApplication::setApplicationName("orbe");
        ThemeSwitch::setTheme(GetParam());
        auto* const tray = parts.add(openBox(30, 20, 10), "tray with a rather long name");
        tray->setColor(0x3f8fd0ff);
        parts.add(torus(40, 10, 80, 30), "ring")->setColor(0xd04f3fff);
        PartEdits::setVisible(document, {parts.second}, false);
        PartEdits::rename(document, *parts.group, "Fixtures");
        PartEdits::duplicate(document, {parts.first});
        PartEdits::setColor(document, {parts.third}, 0x55aa55ff);
        document.undo();
        document.select(tray, true, true, true);
        document.select(parts.third, true, true, false);
    }
    ~PanelPictures() override { ThemeSwitch::setTheme(ThemeSwitch::Choice::Light); }

    static void take(QWidget& widget, QSize size, char const* name)
    {
        widget.resize(size);
        widget.show();
        for (int i = 0; i < 20; ++i)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QImage const picture = widget.grab().toImage();
        QDir const pictures(MELL_BINARY_DIR "/../pictures");
        pictures.mkpath(".");
        QString const theme = GetParam() == ThemeSwitch::Choice::Dark ? "dark" : "light";
        EXPECT_TRUE(picture.save(pictures.filePath(QString("panel-%1-%2.png").arg(name, theme))));
        QSet<QRgb> colors;
        for (int y = 0; y < picture.height(); y += 2)
            for (int x = 0; x < picture.width(); x += 2)
                colors.insert(picture.pixel(x, y));
        EXPECT_GT(colors.size(), 5) << name;
        bool const isDark = picture.pixelColor(1, picture.height() - 2).lightness() < 128;
        EXPECT_EQ(isDark, GetParam() == ThemeSwitch::Choice::Dark) << name;
    }

    QTemporaryDir folder;
    PartDocument parts;
    Mesh::Document& document = *parts.document;
};

}  // namespace

TEST_P(PanelPictures, PartListAndItsMenu)
{
    PartList list;
    take(list, {340, 300}, "parts");
    PartMenu menu(document, nullptr);
    take(menu, menu.sizeHint(), "menu");
    parts.application.newDocument("empty");
    take(list, {340, 300}, "no-parts");
}

TEST_P(PanelPictures, History)
{
    HistoryList history;
    take(history, {240, 200}, "history");
}

TEST_P(PanelPictures, Placement)
{
    PlacementPanel panel;
    take(panel, {300, panel.sizeHint().height()}, "placement");
    document.clearSelection();
    take(panel, {300, panel.sizeHint().height()}, "placement-idle");
}

TEST_P(PanelPictures, Information)
{
    PartInformation panel;
    panel.show();
    panel.checkSelected();
    ASSERT_TRUE(waitUntil([&] { return !JobGuard::instance()->isBusy(); }));
    take(panel, {320, 420}, "information");
    document.clearSelection();
    take(panel, {320, 420}, "information-idle");
}

TEST_P(PanelPictures, Log)
{
    LogRecorder recorder;
    for (int i = 0; i < 12; ++i)
        Base::ConsoleSingleton::Instance().Log("Opened part " + std::to_string(i) + ".");
    handleEvents();
    LogConsole console(recorder);
    take(console, {400, 160}, "log");
}

TEST_P(PanelPictures, Preferences)
{
    Mesh::GLView view;
    ViewAppearance appearance(view);
    ViewPreferences preferences(view);
    PreferencesDialog dialog(appearance, preferences, nullptr);
    take(dialog, dialog.sizeHint(), "preferences");
}

INSTANTIATE_TEST_SUITE_P(Themes, PanelPictures,
                         testing::Values(ThemeSwitch::Choice::Light, ThemeSwitch::Choice::Dark));
