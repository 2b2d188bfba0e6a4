// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/PreferencesDialog.h"
#include "app/view/ViewAppearance.h"
#include "app/view/ViewPreferences.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/LanguageSwitch.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/MellSpinBox.h"
#include "platform/ui/Settings.h"
#include "platform/ui/Theme.h"
#include "platform/ui/ThemeSwitch.h"
#include "platform/view/MeshGLView.h"
#include "tests/app/PartDocument.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QTemporaryDir>

namespace {

using Preset = Base::NavigationStyle::Preset;

class PreferencesTest : public testing::Test
{
protected:
    PreferencesTest()
    {
        QSettings::setPath(g_AppSettingFormat, QSettings::UserScope, folder.path());
        QCoreApplication::setApplicationName("orbe");
    }
    ~PreferencesTest() override
    {
        ThemeSwitch::setTheme(ThemeSwitch::Choice::Light);
        ThemeSwitch::setInterfaceSize(0);
        LanguageSwitch::setLanguage(LanguageSwitch::Choice::English);
        DisplayUnit::instance().setLength(DisplayUnit::Millimetre);
    }

    static void store(QString const& key, QVariant const& value)
    {
        QSettings settings(g_AppSettingFormat, QSettings::UserScope,
                           QCoreApplication::applicationName(), getSettingName());
        settings.setValue(key, value);
    }
    Preset preset() const { return view.navigationStyle()->preset(); }

    QTemporaryDir folder;
    PartDocument parts;
    Mesh::GLView view;
};

}  // namespace

TEST_F(PreferencesTest, EveryChoiceTakesEffectAtOnceAndIsRemembered)
{
    ViewAppearance appearance(view);
    ViewPreferences preferences(view);
    PreferencesDialog dialog(appearance, preferences, nullptr);
    dialog.theme().setCurrentIndex(2);
    EXPECT_TRUE(ThemeSwitch::isDark());
    dialog.theme().setCurrentIndex(1);
    EXPECT_FALSE(ThemeSwitch::isDark());
    dialog.language().setCurrentIndex(2);
    EXPECT_EQ(LanguageSwitch::language(), "de");
    dialog.unit().setCurrentIndex(1);
    EXPECT_EQ(DisplayUnit::instance().length(), DisplayUnit::Inch);
    dialog.navigation().setCurrentIndex(1);
    EXPECT_EQ(preset(), Preset::TurnByMiddle);
    dialog.projection().setCurrentIndex(1);
    EXPECT_EQ(view.projection(), GLCamera::Projection::Perspective);
    dialog.plateWidth().setValue(300);
    dialog.plateDepth().setValue(250);
    dialog.systemSize().setChecked(false);
    dialog.size().setValue(20);
    EXPECT_EQ(g_pixelSize, 20);

    Mesh::GLView next;
    ViewAppearance const nextAppearance(next);
    ViewPreferences const nextPreferences(next);
    EXPECT_EQ(next.navigationStyle()->preset(), Preset::TurnByMiddle);
    EXPECT_TRUE(nextAppearance.isPerspective());
    EXPECT_EQ(nextPreferences.plateSize(), QSizeF(300, 250));
    EXPECT_EQ(ThemeSwitch::choice(), ThemeSwitch::Choice::Light);
    EXPECT_EQ(ThemeSwitch::interfaceSize(), 20);
    EXPECT_EQ(LanguageSwitch::choice(), LanguageSwitch::Choice::German);
}

TEST_F(PreferencesTest, TheDialogShowsWhatIsInEffect)
{
    ViewAppearance appearance(view);
    ViewPreferences preferences(view);
    appearance.setPerspective(true);
    preferences.setNavigation(Preset::MoveByRight);
    preferences.setPlateSize({400, 300});
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Dark);
    PreferencesDialog const dialog(appearance, preferences, nullptr);
    EXPECT_EQ(dialog.theme().currentIndex(), 2);
    EXPECT_EQ(dialog.navigation().currentIndex(), 2);
    EXPECT_EQ(dialog.projection().currentIndex(), 1);
    EXPECT_EQ(dialog.plateWidth().value(), 400);
    EXPECT_EQ(dialog.plateDepth().value(), 300);
    appearance.setPerspective(false);
    EXPECT_EQ(dialog.projection().currentIndex(), 0);
}

TEST_F(PreferencesTest, SettingsThatMakeNoSenseFallBackToTheDefaults)
{
    store("/View/navigation", "by magic");
    for (QVariant const& nonsense : {QVariant("wide"), QVariant(-5), QVariant(1e9), QVariant("nan"),
                                     QVariant(QStringList())}) {
        store("/View/plateWidth", nonsense);
        store("/View/plateDepth", nonsense);
        ViewPreferences const preferences(view);
        EXPECT_EQ(preferences.plateSize(), QSizeF(200, 200)) << nonsense.toString().toStdString();
        EXPECT_EQ(preset(), Preset::TurnByRight);
    }
}

TEST_F(PreferencesTest, TheDialogSpeaksTheLanguageThatWasChosen)
{
    ViewAppearance appearance(view);
    ViewPreferences preferences(view);
    PreferencesDialog dialog(appearance, preferences, nullptr);
    dialog.language().setCurrentIndex(1);
    handleEvents();
    EXPECT_EQ(dialog.windowTitle(), "Preferences");
    // Languages keep their own names whatever the language.
    EXPECT_EQ(dialog.language().itemText(2), "Deutsch");
    int const chosen = dialog.language().currentIndex();
    dialog.language().setCurrentIndex(2);
    handleEvents();
    EXPECT_EQ(dialog.language().currentIndex(), 2);
    EXPECT_NE(chosen, 2);
}
