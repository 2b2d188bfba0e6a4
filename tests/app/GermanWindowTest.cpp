// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/LanguageSwitch.h"
#include "tests/app/AppWindow.h"
#include "tests/support/TranslationFile.h"

#include <QAbstractButton>
#include <QDockWidget>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>

#include <map>
#include <set>

namespace {

/// The letters after "&" that open the entries of a menu, each with its entries.
std::map<QChar, QStringList> acceleratorsOf(QList<QAction*> const& actions)
{
    std::map<QChar, QStringList> found;
    for (QAction const* const action : actions) {
        QString const text = action->text();
        int const at = text.indexOf('&');
        if (action->isVisible() && at >= 0 && at + 1 < text.size())
            found[text[at + 1].toLower()] << text;
    }
    return found;
}

void expectUnique(QList<QAction*> const& actions)
{
    for (auto const& [letter, texts] : acceleratorsOf(actions))
        EXPECT_EQ(texts.size(), 1) << qPrintable(texts.join(", "));
}

/// Everything that a widget and its children show or tell.
void collectTexts(QWidget const& window, QStringList& texts)
{
    for (QAction const* const action : window.findChildren<QAction*>())
        texts << action->text() << action->toolTip() << action->statusTip();
    for (QWidget const* const widget : window.findChildren<QWidget*>()) {
        texts << widget->toolTip() << widget->windowTitle();
        if (auto const* const label = qobject_cast<QLabel const*>(widget))
            texts << label->text();
        else if (auto const* const button = qobject_cast<QAbstractButton const*>(widget))
            texts << button->text();
        else if (auto const* const box = qobject_cast<QGroupBox const*>(widget))
            texts << box->title();
        else if (auto const* const edit = qobject_cast<QLineEdit const*>(widget))
            texts << edit->placeholderText();
        else if (auto const* const tabs = qobject_cast<QTabBar const*>(widget))
            for (int i = 0; i < tabs->count(); ++i)
                texts << tabs->tabText(i);
    }
}

/// Texts that are never the same in German.
std::set<QString> englishTexts()
{
    std::set<QString> english, same;
    for (TranslatedText const& text :
         readTranslationFile(MELL_SOURCE_DIR "/resources/translations/orbe_de.ts"))
        (text.translations.contains(text.source) ? same : english).insert(text.source);
    for (QString const& text : same)
        english.erase(text);
    return english;
}

class GermanWindow : public AppWindow
{
protected:
    void SetUp() override
    {
        AppWindow::SetUp();
        LanguageSwitch::setLanguage(LanguageSwitch::Choice::German);
        QCoreApplication::processEvents();
    }
    void TearDown() override
    {
        LanguageSwitch::setLanguage(LanguageSwitch::Choice::English);
        QCoreApplication::processEvents();
        AppWindow::TearDown();
    }
};

}  // namespace

TEST_F(GermanWindow, HasNoTwoEntriesOfAMenuOnOneLetter)
{
    expectUnique(window->menuBar()->actions());
    for (QAction const* const title : window->menuBar()->actions())
        if (title->menu()) {
            SCOPED_TRACE(qPrintable(title->text()));
            expectUnique(title->menu()->actions());
        }
}

TEST_F(GermanWindow, LeavesNoEnglishTextBehind)
{
    test->add(box(20, 20, 20), "Box");
    QCoreApplication::processEvents();
    std::set<QString> const english = englishTexts();
    QStringList texts;
    collectTexts(*window, texts);
    EXPECT_GT(texts.size(), 100);
    for (QString const& text : texts)
        EXPECT_EQ(english.count(text), 0u) << qPrintable(text);
}

TEST_F(GermanWindow, ShowsGermanMenus)
{
    QStringList titles;
    for (QAction const* const title : window->menuBar()->actions())
        titles << title->text();
    EXPECT_TRUE(titles.contains("&Datei")) << qPrintable(titles.join(' '));
    EXPECT_TRUE(titles.contains("S&chneiden")) << qPrintable(titles.join(' '));
}

TEST_F(GermanWindow, NamesTheJobsOfApplicationAndPlugInInGerman)
{
    EXPECT_EQ(JobGuard::translatedTitle("Opening files"), QString::fromUtf8("Dateien öffnen"));
    EXPECT_EQ(JobGuard::translatedTitle("Section Cut"), "Ebenenschnitt");
    EXPECT_EQ(JobGuard::translatedTitle("Something else"), "Something else");
}

TEST_F(GermanWindow, LooksTidy)
{
    if (!hasDisplay())
        GTEST_SKIP() << "Pictures need a display.";
    test->add(box(40, 30, 20), "Box");
    show();
    trigger("Std_View6");
    trigger("Std_FitAll");
    takePicture("german");
}
