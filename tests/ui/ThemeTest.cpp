// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/Action.h"
#include "platform/ui/Application.h"
#include "platform/ui/Command.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/Theme.h"
#include "platform/ui/ThemeSwitch.h"
#include "tests/support/ScratchSettings.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPalette>

#include <cmath>
#include <vector>

namespace {

class Themes : public testing::Test
{
protected:
    Themes() { ThemeSwitch::applyStored(); }

    ScratchSettings settings;
};

double luminance(QColor const& colour)
{
    auto const linear = [](double share) {
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(char const* one, char const* other)
{
    double const first = luminance(themeColor(one));
    double const second = luminance(themeColor(other));
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

class CmdCountingIcons : public Base::Command
{
public:
    CmdCountingIcons() : Base::Command("Std_Counting") {}
    void activated(int) override {}
    void updateActionIcon() override { ++updates; }
    int updates = 0;
};

}  // namespace

TEST_F(Themes, SwitchTellsTheMainWindowAndTheActions)
{
    Application application;
    auto* const command = new CmdCountingIcons;
    application.commandManager().addCommand(command);
    command->getAction();
    MainWindow window;
    std::vector<int> told;
    QObject::connect(&window, &MainWindowBase::signalThemeColorChanged,
                     [&](int theme) { told.push_back(theme); });
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Dark);
    EXPECT_TRUE(ThemeSwitch::isDark());
    EXPECT_EQ(g_ThemeColor & 16, 16);
    EXPECT_LT(QApplication::palette().color(QPalette::Window).lightness(), 128);
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Light);
    EXPECT_EQ(g_ThemeColor & 16, 0);
    EXPECT_GT(QApplication::palette().color(QPalette::Window).lightness(), 128);
    EXPECT_EQ(told, (std::vector{16, 0}));
    EXPECT_EQ(command->updates, 2);
}

TEST_F(Themes, ChoiceIsKeptAndWrongStoredOnesFollowTheSystem)
{
    EXPECT_EQ(ThemeSwitch::choice(), ThemeSwitch::Choice::System);
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Dark);
    EXPECT_EQ(ThemeSwitch::choice(), ThemeSwitch::Choice::Dark);
    EXPECT_EQ(settings.value("/Interface/theme"), "dark");
    settings.setValue("/Interface/theme", "pink");
    settings.setValue("/Interface/pixelSize", "many");
    EXPECT_EQ(ThemeSwitch::choice(), ThemeSwitch::Choice::System);
    EXPECT_EQ(ThemeSwitch::interfaceSize(), 0);
    ThemeSwitch::applyStored();
    EXPECT_FALSE(ThemeSwitch::isDark());
}

TEST_F(Themes, InterfaceSizeSetsTheFontAndTheBaseSize)
{
    int const automatic = g_pixelSize;
    ThemeSwitch::setInterfaceSize(17);
    EXPECT_EQ(g_pixelSize, 17);
    EXPECT_EQ(QApplication::font().pixelSize(), 17);
    EXPECT_EQ(ThemeSwitch::interfaceSize(), 17);
    ThemeSwitch::setInterfaceSize(1000);
    EXPECT_EQ(g_pixelSize, ThemeSwitch::largestSize);
    ThemeSwitch::setInterfaceSize(0);
    EXPECT_EQ(g_pixelSize, automatic);
    EXPECT_EQ(ThemeSwitch::interfaceSize(), 0);
}

TEST_F(Themes, NamesColoursAndLengths)
{
    EXPECT_GT(binderTheme("dialogWidegtMargin").toDouble(), 0);
    EXPECT_EQ(themePixels("dialogWidegtMargin"),
              int(binderTheme("dialogWidegtMargin").toDouble() * g_pixelSize));
    EXPECT_TRUE(themeColor("accent").isValid());
    EXPECT_FALSE(binderTheme("no such name").isValid());
}

TEST_F(Themes, TextsAndEdgesCanBeSeen)
{
    for (auto const choice : {ThemeSwitch::Choice::Light, ThemeSwitch::Choice::Dark}) {
        ThemeSwitch::setTheme(choice);
        for (char const* const text : {"text", "mutedText"})
            for (char const* const ground : {"window", "base", "surface", "header", "hover"})
                EXPECT_GE(contrast(text, ground), 4.5) << text << " on " << ground;
        for (char const* const text : {"link", "error", "warning", "success"})
            for (char const* const ground : {"window", "base", "surface"})
                EXPECT_GE(contrast(text, ground), 4.5) << text << " on " << ground;
        for (char const* const ground : {"accent", "accentHover", "accentPressed"})
            EXPECT_GE(contrast("accentText", ground), 4.5) << ground;
        EXPECT_GE(contrast("caution", "window"), 3);
        EXPECT_GE(contrast("text", "selection"), 4.5);
        EXPECT_GE(contrast("text", "pressed"), 4.5);
        EXPECT_GE(contrast("toolTipText", "toolTip"), 4.5);
        for (char const* const ground : {"window", "base", "surface"})
            EXPECT_GE(contrast("controlBorder", ground), 3) << ground;
        for (char const* const ground : {"window", "base", "surface", "header"})
            EXPECT_GE(contrast("focus", ground), 3) << ground;
    }
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Light);
}
