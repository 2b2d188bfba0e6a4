// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/WindowMenus.h"
#include "host/ui/HeightWarning.h"
#include "tests/app/ToolWindow.h"

#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>

namespace {

/// Without the letter's mark and the dots.
QString plain(QString text)
{
    return text.remove('&').remove(QStringLiteral("...")).simplified();
}

/// "Menu > Entry" of all entries.
QStringList entriesOf(QMainWindow const& window)
{
    QStringList entries;
    for (QAction const* const menu : window.menuBar()->actions())
        for (QAction const* const entry : menu->menu()->actions())
            entries << plain(menu->text()) + " > " + plain(entry->text());
    return entries;
}

QString fileText(char const* name)
{
    QFile file(QString::fromStdString(sourcePath(name)));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

class LeftBehind : public ToolWindow
{
};

}  // namespace

TEST_F(AppWindow, TheGuideNamesOnlyEntriesThatMenusHave)
{
    QString guide = fileText("docs/guide.md").simplified();
    ASSERT_FALSE(guide.isEmpty());
    QStringList const entries = entriesOf(*window);
    // Bold: "Menu > Entry", with either sign between them.
    QRegularExpression const quoted(QString::fromUtf8("\\*\\*([A-Z]\\w+) [>\u203a] ([^*]+)\\*\\*"));
    int count = 0;
    for (auto match = quoted.globalMatch(guide); match.hasNext(); ++count) {
        auto const found = match.next();
        QString const entry = found.captured(1) + " > " + plain(found.captured(2));
        EXPECT_TRUE(entries.contains(entry)) << qPrintable(entry);
    }
    EXPECT_GT(count, 15);
}

TEST_F(LeftBehind, TheHeightOfACutIsNoMistakeForItsPieces)
{
    test->add(box(20, 20, 40), "block")->setSelected(true, true, false);
    MainWindow::getViewSlider()->setHeight(15);
    settle();
    pressKey(Qt::Key_C);
    waitUntil([] { return !JobGuard::instance()->isBusy(); });
    settle();
    ASSERT_EQ(document().getSelectedMeshObjects().size(), 2u);
    auto const& warning = *window->findChild<HeightWarning*>();
    EXPECT_FALSE(warning.isVisible()) << qPrintable(warning.text());
    // Another height meets one piece alone.
    MainWindow::getViewSlider()->setHeight(10);
    settle();
    EXPECT_EQ(warning.text(), "misses 1 of 2");
    // One piece alone is missed at its end.
    MainWindow::getViewSlider()->setHeight(15);
    document().getMeshObjects()[0]->setSelected(true, true, true);
    settle();
    EXPECT_EQ(warning.text(), "misses the selection");
}

TEST_F(LeftBehind, NumbersAreThoseOfTheLanguage)
{
    test->add(sphere(10, 30, 40), "ball")->setSelected(true, true, false);
    settle();
    QLabel const& summary = *window->statusLine().findChild<QLabel*>("SelectionSummary");
    QString const english = summary.text();
    EXPECT_TRUE(english.contains("2,")) << qPrintable(english);
    LanguageSwitch::setLanguage(LanguageSwitch::Choice::German);
    settle();
    EXPECT_EQ(summary.text(), QString(english)
                                  .replace(",", ".")
                                  .replace("1 part. ", "1 Bauteil, ")
                                  .replace("triangles", "Dreiecke"));
    EXPECT_EQ(QLocale().toString(1.5), "1,5");
    LanguageSwitch::setLanguage(LanguageSwitch::Choice::English);
    settle();
    EXPECT_EQ(summary.text(), english);
}
