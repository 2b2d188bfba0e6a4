// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/StrokeText.h"
#include "platform/ui/Action.h"
#include "platform/ui/Application.h"
#include "platform/ui/Command.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/LanguageSwitch.h"
#include "platform/ui/Settings.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QLibraryInfo>
#include <QSettings>
#include <QTemporaryDir>
#include <QWidget>

namespace {

using Choice = LanguageSwitch::Choice;

/// A command whose texts the plug-in has translated.
class CmdPlanecut : public Base::Command
{
public:
    CmdPlanecut() : Base::Command("Std_Sectioncut") { m_menuText = "Section Cut"; }

    char const* className() const override { return "CmdPlanecut"; }
    void activated(int) override {}
};

class Page : public QWidget
{
public:
    int changes = 0;

protected:
    void changeEvent(QEvent* event) override
    {
        if (event->type() == QEvent::LanguageChange)
            ++changes;
        QWidget::changeEvent(event);
    }
};

/// Settings of its own, and English again at the end.
class LanguageSwitchTest : public testing::Test
{
protected:
    LanguageSwitchTest()
    {
        QSettings::setPath(g_AppSettingFormat, QSettings::UserScope, m_folder.path());
    }
    ~LanguageSwitchTest() override { LanguageSwitch::setLanguage(Choice::English); }

    static void store(QString const& value)
    {
        QSettings(g_AppSettingFormat, QSettings::UserScope, QCoreApplication::applicationName(),
                  getSettingName())
            .setValue("/Interface/language", value);
    }

    static QString sectionCut()
    {
        return QCoreApplication::translate("CmdPlanecut", "Section Cut");
    }

private:
    QTemporaryDir m_folder;
};

}  // namespace

TEST_F(LanguageSwitchTest, FollowsTheSystemWhileNothingIsStored)
{
    EXPECT_EQ(LanguageSwitch::choice(), Choice::System);
    LanguageSwitch::applyStored();
    EXPECT_EQ(LanguageSwitch::language(),
              LanguageSwitch::languageFor(QLocale::system().uiLanguages()));
}

TEST_F(LanguageSwitchTest, TakesTheFirstWantedLanguageThatThereIs)
{
    EXPECT_EQ(LanguageSwitch::languageFor({"de-CH", "en-GB"}), "de");
    EXPECT_EQ(LanguageSwitch::languageFor({"fr-FR", "de_AT.UTF-8", "en"}), "de");
    EXPECT_EQ(LanguageSwitch::languageFor({"en-GB", "de"}), "en");
    EXPECT_EQ(LanguageSwitch::languageFor({"den", "enm"}), "en");
    EXPECT_EQ(LanguageSwitch::languageFor({"fr"}), "en");
    EXPECT_EQ(LanguageSwitch::languageFor({}), "en");
}

TEST_F(LanguageSwitchTest, RemembersTheChoice)
{
    for (Choice const choice : {Choice::German, Choice::English, Choice::System}) {
        LanguageSwitch::setLanguage(choice);
        EXPECT_EQ(LanguageSwitch::choice(), choice);
    }
    LanguageSwitch::setLanguage(Choice::German);
    LanguageSwitch::applyStored();
    EXPECT_EQ(LanguageSwitch::language(), "de");
}

TEST_F(LanguageSwitchTest, TakesAStoredValueWithoutSenseForTheSystem)
{
    for (char const* const value : {"", "klingon", "DE", "1"}) {
        store(value);
        EXPECT_EQ(LanguageSwitch::choice(), Choice::System) << value;
    }
    LanguageSwitch::applyStored();
}

TEST_F(LanguageSwitchTest, TranslatesToGermanAndBack)
{
    LanguageSwitch::setLanguage(Choice::German);
    EXPECT_EQ(sectionCut(), QString::fromUtf8("Ebenenschnitt"));
    LanguageSwitch::setLanguage(Choice::English);
    EXPECT_EQ(sectionCut(), "Section Cut");
}

TEST_F(LanguageSwitchTest, TranslatesQtsOwnTexts)
{
    if (!QFile::exists(QLibraryInfo::location(QLibraryInfo::TranslationsPath) + "/qtbase_de.qm"))
        GTEST_SKIP() << "Qt's translations are not installed.";
    LanguageSwitch::setLanguage(Choice::German);
    EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), "Abbrechen");
}

TEST_F(LanguageSwitchTest, KeepsTheSourceTextWhereThereIsNoOther)
{
    LanguageSwitch::setLanguage(Choice::German);
    EXPECT_EQ(QCoreApplication::translate("Nobody", "A text that nobody shows"),
              "A text that nobody shows");
}

TEST_F(LanguageSwitchTest, TellsEveryWidgetOnce)
{
    LanguageSwitch::setLanguage(Choice::English);
    QCoreApplication::processEvents();
    Page window;
    auto* const inner = new Page;
    inner->setParent(&window);

    LanguageSwitch::setLanguage(Choice::German);
    QCoreApplication::processEvents();

    EXPECT_EQ(window.changes, 1);
    EXPECT_EQ(inner->changes, 1);
}

TEST_F(LanguageSwitchTest, TranslatesTheCommands)
{
    Application application;
    application.commandManager().addCommand(new CmdPlanecut);
    Base::Action* const action =
        application.commandManager().getCommandByName("Std_Sectioncut")->getAction();
    LanguageSwitch::setLanguage(Choice::German);
    EXPECT_EQ(action->text(), "Ebenenschnitt");
    LanguageSwitch::setLanguage(Choice::English);
    EXPECT_EQ(action->text(), "Section Cut");
}

TEST_F(LanguageSwitchTest, NamesTheFacesOfTheCubeByLettersThatCanBeDrawn)
{
    for (Choice const choice : {Choice::English, Choice::German}) {
        LanguageSwitch::setLanguage(choice);
        for (char const* const face : {"FRONT", "BACK", "TOP", "BOTTOM", "LEFT", "RIGHT"}) {
            std::string const name =
                QCoreApplication::translate("OrientationCube", face).toStdString();
            EXPECT_EQ(name == face, choice == Choice::English) << name;
            for (char const letter : name)
                EXPECT_FALSE(strokesOf(std::string(1, letter)).empty()) << name << ": " << letter;
        }
    }
}
