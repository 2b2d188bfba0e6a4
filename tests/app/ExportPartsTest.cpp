// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/ExportDialog.h"
#include "app/window/StatusLine.h"
#include "host/formats/PartFiles.h"
#include "platform/ui/LanguageSwitch.h"
#include "tests/app/AppWindow.h"
#include "tests/app/FilesScene.h"
#include "tests/support/ScratchSettings.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDesktopServices>
#include <QLabel>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

using testing::ElementsAre;
using testing::SizeIs;

namespace {

void choose(ExportDialog& dialog, char const* format)
{
    auto* const formats = dialog.findChild<QComboBox*>();
    formats->setCurrentIndex(formats->findData(format));
}

/// Hears of links that are opened.
class OpenedLinks : public QObject
{
    Q_OBJECT

public:
    OpenedLinks() { QDesktopServices::setUrlHandler("file", this, "open"); }
    ~OpenedLinks() override { QDesktopServices::unsetUrlHandler("file"); }
    QList<QUrl> urls;

public slots:
    void open(QUrl const& url) { urls << url; }
};

class WrittenFiles : public AppWindow
{
};

}  // namespace

TEST(ExportDialog, ProposesAFileForEachPartButIn3MF)
{
    ScratchSettings const settings;
    {
        ExportDialog dialog({"plate", 3, {}}, nullptr);
        for (char const* const format : {"stl", "obj", "ply"}) {
            choose(dialog, format);
            EXPECT_TRUE(dialog.isOneFilePerPart()) << format;
        }
        choose(dialog, "3mf");
        EXPECT_FALSE(dialog.isOneFilePerPart());
        // What the user chooses stays.
        choose(dialog, "stl");
        dialog.findChildren<QRadioButton*>()[0]->click();
        choose(dialog, "obj");
        EXPECT_FALSE(dialog.isOneFilePerPart());
        dialog.accept();
    }
    ExportDialog const again({"plate", 3, {}}, nullptr);
    EXPECT_EQ(again.format(), "obj");
    EXPECT_FALSE(again.isOneFilePerPart());
    ExportDialog const single({"gear", 1, {}}, nullptr);
    EXPECT_FALSE(single.isOneFilePerPart());
}

TEST(ExportDialog, NamesHiddenPartsAndLeavesThemOutUnlessAsked)
{
    ScratchSettings const settings;
    ExportDialog dialog({"plate", 1, {"pin", "washer"}}, nullptr);
    auto* const hidden = dialog.findChild<QCheckBox*>();
    EXPECT_EQ(hidden->text(), "Hidden parts too: pin, washer");
    EXPECT_FALSE(dialog.takesHidden());
    EXPECT_FALSE(dialog.isOneFilePerPart());
    EXPECT_EQ(dialog.windowTitle(), "Export Part");
    hidden->click();
    EXPECT_TRUE(dialog.takesHidden());
    EXPECT_TRUE(dialog.isOneFilePerPart());
    EXPECT_EQ(dialog.windowTitle(), "Export 3 Parts");
    ExportDialog const none({"plate", 2, {}}, nullptr);
    EXPECT_TRUE(none.findChild<QCheckBox*>()->isHidden());
    // Where all parts are hidden they are what there is to export.
    ExportDialog const all({"plate", 0, {"pin"}}, nullptr);
    EXPECT_TRUE(all.takesHidden());
    EXPECT_FALSE(all.findChild<QCheckBox*>()->isEnabled());
}

TEST(ExportParts, LeavesHiddenPartsOutUnlessAskedAndSaysWhichWereWritten)
{
    FilesScene scene;
    scene.scene.add(box(1, 2, 3), "seen");
    scene.scene.add(box(1, 2, 3), "hidden")->setVisible(false);
    QSignalSpy const written(&scene.files, &DocumentFiles::written);
    scene.answers.plan = ExportPlan{scene.path("a.3mf"), "3mf", false, false};
    scene.files.exportParts(false);
    scene.finish();
    EXPECT_THAT(scene.answers.hidden, ElementsAre(QStringList{"hidden"}));
    EXPECT_THAT(scene.answers.suggestions, ElementsAre("seen"));
    EXPECT_THAT(Formats::readParts(scene.folder / "a.3mf"), SizeIs(1));
    ASSERT_EQ(written.size(), 1);
    EXPECT_EQ(written[0][0].toString(), "Exported a.3mf. Left out as hidden: hidden.");
    EXPECT_EQ(written[0][1].toString().toStdString(), scene.folder.path().string());

    scene.answers.plan = ExportPlan{scene.path(""), "stl", true, true};
    scene.files.exportParts(false);
    scene.finish();
    EXPECT_THAT(scene.folder.names(), ElementsAre("a.3mf", "hidden.stl", "seen.stl"));
    ASSERT_EQ(written.size(), 2);
    EXPECT_EQ(written[1][0].toString(), "Exported 2 files.");

    // Those that are selected are asked for.
    scene.document()->getMeshObjects()[1]->setSelected(true, true, true);
    scene.answers.plan = ExportPlan{scene.path("b.stl"), "stl", false, false};
    scene.files.exportParts(true);
    scene.finish();
    EXPECT_TRUE(scene.answers.hidden.back().isEmpty());
    EXPECT_EQ(written.back()[0].toString(), "Exported b.stl.");
}

TEST_F(WrittenFiles, AreToldOnTheStatusLineWithALinkToTheirFolder)
{
    show();
    QTemporaryDir const folder;
    OpenedLinks const links;
    auto* const hint = window->statusLine().findChild<QLabel*>("Hint");
    QString const before = hint->text();
    emit window->files().written("Saved a<b & c.3mf.", folder.path());
    EXPECT_TRUE(hint->text().contains("Saved a&lt;b &amp; c.3mf.")) << qPrintable(hint->text());
    emit hint->linkActivated(QUrl::fromLocalFile(folder.path()).toString());
    EXPECT_EQ(links.urls, QList<QUrl>{QUrl::fromLocalFile(folder.path())});
    takePicture("written");
    // A message comes before it, and a change of the document takes nothing away.
    window->statusLine().showMessage("Message");
    EXPECT_EQ(hint->text(), "Message");
    window->statusLine().clearMessage();
    EXPECT_TRUE(hint->text().contains("href"));
    LanguageSwitch::setLanguage(LanguageSwitch::Choice::German);
    QCoreApplication::processEvents();
    EXPECT_FALSE(hint->text().contains("Saved")) << qPrintable(hint->text());
    LanguageSwitch::setLanguage(LanguageSwitch::Choice::English);
    QCoreApplication::processEvents();
    EXPECT_EQ(hint->text(), before);
}

#include "ExportPartsTest.moc"
