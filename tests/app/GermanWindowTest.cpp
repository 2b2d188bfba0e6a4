// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/ExportDialog.h"
#include "app/panels/HistoryList.h"
#include "app/panels/PartInformation.h"
#include "app/panels/PlacementPanel.h"
#include "app/panels/PreferencesDialog.h"
#include "app/partlist/PartList.h"
#include "app/view/ViewAppearance.h"
#include "app/view/ViewPreferences.h"
#include "app/window/ShortcutList.h"
#include "platform/ui/LanguageSwitch.h"
#include "platform/ui/ThemeSwitch.h"
#include "tests/app/AppWindow.h"
#include "tests/support/Places.h"
#include "tests/support/SkipReasons.h"
#include "tests/support/TranslationFile.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDockWidget>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>
#include <QTreeWidget>

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
    for (TranslatedText const& text : readTranslationFile(
             QString::fromStdString(sourcePath("resources/translations/orbe_de.ts"))))
        (text.translations.contains(text.source) ? same : english).insert(text.source);
    for (QString const& text : same)
        english.erase(text);
    return english;
}

void expectNoEnglishText(QWidget const& window)
{
    static std::set<QString> const english = englishTexts();
    QStringList texts;
    collectTexts(window, texts);
    for (QString const& text : texts)
        EXPECT_EQ(english.count(text), 0u) << qPrintable(text);
}

/// Whether a label or button has the room that its text needs. Those that take what they are given end their
/// text in dots, and tell all of it in a tip.
void expectWholeTexts(QWidget const& window)
{
    for (QWidget const* const widget : window.findChildren<QWidget*>()) {
        auto const* const label = qobject_cast<QLabel const*>(widget);
        auto const* const button = qobject_cast<QAbstractButton const*>(widget);
        bool const isText = label ? !label->wordWrap() && !label->text().isEmpty()
                                  : button && !button->text().isEmpty();
        bool const endsInDots = widget->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
        if (isText && !endsInDots && widget->isVisible()) {
            EXPECT_GE(widget->width(), widget->sizeHint().width())
                << qPrintable(label ? label->text() : button->text());
        }
    }
}

class GermanWindow : public AppWindow
{
protected:
    /// Dialogs and panels that were made in English.
    std::vector<std::unique_ptr<QWidget>> panels()
    {
        appearance = std::make_unique<ViewAppearance>(window->view());
        preferences = std::make_unique<ViewPreferences>(window->view());
        std::vector<std::unique_ptr<QWidget>> made;
        made.push_back(std::make_unique<PreferencesDialog>(*appearance, *preferences, nullptr));
        made.push_back(std::make_unique<PlacementPanel>());
        made.push_back(std::make_unique<PartInformation>());
        made.push_back(std::make_unique<PartList>());
        made.push_back(std::make_unique<HistoryList>());
        return made;
    }

    std::unique_ptr<ViewAppearance> appearance;
    std::unique_ptr<ViewPreferences> preferences;

    void SetUp() override
    {
        AppWindow::SetUp();
        ThemeSwitch::setTheme(ThemeSwitch::Choice::Light);
        LanguageSwitch::setLanguage(LanguageSwitch::Choice::German);
        QCoreApplication::processEvents();
    }
    void TearDown() override
    {
        preferences.reset();
        appearance.reset();
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
    LanguageSwitch::setLanguage(LanguageSwitch::Choice::English);
    test->add(box(20, 20, 20), "Box");
    show();
    LanguageSwitch::setLanguage(LanguageSwitch::Choice::German);
    QCoreApplication::processEvents();
    QStringList texts;
    collectTexts(*window, texts);
    EXPECT_GT(texts.size(), 100);
    expectNoEnglishText(*window);
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
        GTEST_SKIP() << displayIsMissing;
    test->add(box(40, 30, 20), "Box");
    show();
    trigger("Std_View6");
    trigger("Std_FitAll");
    takePicture("german");
}

TEST_F(GermanWindow, RetranslatesPanelsAndShowsTheirTextsWhole)
{
    LanguageSwitch::setLanguage(LanguageSwitch::Choice::English);
    test->add(box(40, 30, 20), "Box");
    auto const made = panels();
    trigger("Std_SelectAll");
    LanguageSwitch::setLanguage(LanguageSwitch::Choice::German);
    for (auto const& panel : made) {
        panel->show();
        QCoreApplication::processEvents();
        QString const name = panel->metaObject()->className();
        SCOPED_TRACE(qPrintable(name));
        expectNoEnglishText(*panel);
        expectWholeTexts(*panel);
        panel->grab().save(
            QString::fromStdString(picturePath("german-" + name.toStdString() + ".png")));
    }
}

TEST_F(GermanWindow, OpensDialogsInGermanWithTheirTextsWhole)
{
    ShortcutList shortcuts(commands(), ShortcutList::Preset::TurnByRight, nullptr);
    ExportDialog exporting({"plate", 3, {"pin"}}, nullptr);
    for (QDialog* const dialog :
         {static_cast<QDialog*>(&shortcuts), static_cast<QDialog*>(&exporting)}) {
        dialog->show();
        QCoreApplication::processEvents();
        QString const name = dialog->metaObject()->className();
        SCOPED_TRACE(qPrintable(name));
        expectNoEnglishText(*dialog);
        expectWholeTexts(*dialog);
        dialog->grab().save(
            QString::fromStdString(picturePath("german-" + name.toStdString() + ".png")));
    }
}

TEST_F(GermanWindow, PreferencesGrowWithTheTextsOfTheChosenLanguage)
{
    LanguageSwitch::setLanguage(LanguageSwitch::Choice::English);
    appearance = std::make_unique<ViewAppearance>(window->view());
    preferences = std::make_unique<ViewPreferences>(window->view());
    PreferencesDialog dialog(*appearance, *preferences, nullptr);
    dialog.show();
    QCoreApplication::processEvents();
    QSize const english = dialog.geometry().size();
    dialog.language().setCurrentIndex(int(LanguageSwitch::Choice::German));
    QCoreApplication::processEvents();
    EXPECT_GT(dialog.width(), english.width());
    EXPECT_GE(dialog.width(), dialog.sizeHint().width());
    EXPECT_GE(dialog.height(), dialog.sizeHint().height());
    expectWholeTexts(dialog);
    // It does not jump back under the mouse.
    QSize const german = dialog.geometry().size();
    dialog.language().setCurrentIndex(int(LanguageSwitch::Choice::English));
    QCoreApplication::processEvents();
    EXPECT_EQ(dialog.geometry().size(), german);
}

TEST_F(GermanWindow, ListsWhatTheMouseDoesInTheChosenPreset)
{
    using Preset = ShortcutList::Preset;
    QString const right = "Mit der rechten Taste ziehen";
    QString const middle = "Mit der mittleren Taste ziehen";
    struct Row
    {
        Preset preset;
        QString turn, move, zoom;
    };
    Row const rows[] = {
        {Preset::TurnByRight, right, "Mit der mittleren Taste ziehen oder rechts mit Umschalt",
         "Mausrad oder mit der rechten Taste und Strg ziehen"},
        {Preset::TurnByMiddle, middle, "Mit der mittleren Taste und Umschalt ziehen",
         "Mausrad oder mit der mittleren Taste und Strg ziehen"},
        {Preset::MoveByRight, middle, right, "Mausrad oder mit der rechten Taste und Strg ziehen"},
        {Preset::TurnByLeft, "Mit der linken Taste ziehen; mit Alt, wenn ein Werkzeug läuft",
         "Mit der linken Taste und Umschalt ziehen",
         "Mausrad oder mit der rechten Taste und Strg ziehen"},
    };
    for (Row const& row : rows) {
        ViewPreferences(window->view()).setNavigation(row.preset);
        trigger("Std_Shortcuts");
        auto const lists = window->findChildren<ShortcutList*>();
        ASSERT_EQ(lists.size(), 1);
        QStringList keys;
        auto const* const tree = lists[0]->findChild<QTreeWidget*>();
        for (int i = 0; i < tree->topLevelItemCount(); ++i)
            keys << tree->topLevelItem(i)->text(1);
        for (QString const& expected : {row.turn, row.move, row.zoom})
            EXPECT_TRUE(keys.contains(expected)) << qPrintable(expected);
        delete lists[0];
    }
}
