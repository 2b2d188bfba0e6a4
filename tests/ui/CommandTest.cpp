// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ui/MellStyle.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/jobs/Exceptions.h"
#include "platform/ui/Action.h"
#include "platform/ui/Application.h"
#include "platform/ui/Command.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/Theme.h"
#include "tests/support/AnsweredMessages.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QImage>
#include <QMenu>
#include <QToolButton>
#include <QTranslator>

#include <functional>
#include <memory>
#include <new>
#include <stdexcept>
#include <vector>

namespace {

class CmdTurn : public Base::Command
{
public:
    explicit CmdTurn(char const* name = "Std_Turn") : Base::Command(name)
    {
        m_menuText = "&Turn";
        m_toolTipText = "Turn the part(s).";
        m_toolTipExtText = ":/icons/icons/turn.png";
        m_statusTip = "Turning";
        m_whatsThis = "What turning is";
        m_pixmap = ":/icons/icons/turn.png";
        m_pixmapDark = ":/icons/icons/turn_dark.png";
        m_accel = "T";
        m_group = "Mesh";
        ++alive;
    }
    ~CmdTurn() override { --alive; }

    char const* className() const override { return "CmdTurn"; }
    bool isActive() override { return active; }
    void activated(int state) override
    {
        states.push_back(state);
        if (!failure.empty())
            throw Mell::AbortException(failure.c_str());
        if (work)
            work();
    }

    static inline int alive = 0;
    bool active = true;
    std::string failure;
    std::function<void()> work;
    std::vector<int> states;
};

class CmdTool : public CmdTurn
{
public:
    CmdTool() : CmdTurn("Std_Tool") {}
    Base::Action* createAction() override
    {
        Base::Action* const action = CmdTurn::createAction();
        action->setCheckable(true);
        return action;
    }
};

// Puts the context in front, so that a test sees which one was asked for.
class ContextTranslator : public QTranslator
{
public:
    QString translate(char const* context, char const* source, char const*, int) const override
    {
        return QString("%1:%2").arg(context, source);
    }
    bool isEmpty() const override { return false; }
};

}  // namespace

TEST(Command, ShowsTheFieldsItsConstructorFilled)
{
    CmdTurn command;
    EXPECT_EQ(command.getName(), "Std_Turn");
    EXPECT_EQ(command.getGroupName(), "Mesh");
    EXPECT_EQ(command.getMenuText(), "&Turn");
    EXPECT_EQ(command.getToolTipText(), "Turn the part(s).");
    EXPECT_EQ(command.getToolTipExtText(), ":/icons/icons/turn.png");
    EXPECT_EQ(command.getStatusTip(), "Turning");
    EXPECT_EQ(command.getWhatsThis(), "What turning is");
    EXPECT_STREQ(command.getPixmap(), ":/icons/icons/turn.png");
    EXPECT_STREQ(command.getPixmapDark(), ":/icons/icons/turn_dark.png");
    EXPECT_STREQ(command.getAccel(), "T");
    EXPECT_TRUE(command.getHelpUrl().isEmpty());
    EXPECT_FALSE(command.hasAction());
}

TEST(Command, IsActiveByDefault)
{
    struct Plain : Base::Command
    {
        using Command::Command;
        void activated(int) override {}
    } plain("Plain");
    EXPECT_TRUE(plain.isActive());
    EXPECT_EQ(plain.getPixmap(), nullptr);
    EXPECT_EQ(plain.getAccel(), nullptr);
    EXPECT_TRUE(plain.getAction()->text().isEmpty());
}

TEST(Command, DefaultActionCarriesItsTextsAndAccelerator)
{
    CmdTurn command;
    Base::Action* const action = command.getAction();
    ASSERT_NE(action, nullptr);
    EXPECT_EQ(command.getAction(), action);
    EXPECT_EQ(action->text(), "&Turn");
    EXPECT_EQ(action->toolTip(), "Turn the part(s).");
    EXPECT_EQ(action->statusTip(), "Turning");
    EXPECT_EQ(action->whatsThis(), "What turning is");
    EXPECT_EQ(action->shortcut(), "T");
    EXPECT_FALSE(action->getQAction()->isCheckable());
}

TEST(Command, TextsAreTranslatedInTheContextOfTheClass)
{
    CmdTurn command;
    Base::Action* const action = command.getAction();
    ContextTranslator translator;
    QCoreApplication::installTranslator(&translator);
    command.languageChange();
    QCoreApplication::removeTranslator(&translator);
    EXPECT_EQ(action->text(), "CmdTurn:&Turn");
    EXPECT_EQ(action->toolTip(), "CmdTurn:Turn the part(s).");
    EXPECT_EQ(action->statusTip(), "CmdTurn:Turning");
    EXPECT_EQ(action->whatsThis(), "CmdTurn:What turning is");
    command.languageChange();
    EXPECT_EQ(action->text(), "&Turn");
}

TEST(Command, TriggerInvokesIt)
{
    CmdTurn command;
    command.getAction()->getQAction()->trigger();
    command.invoke(4);
    EXPECT_EQ(command.states, (std::vector{0, 4}));
}

TEST(Command, CheckableActionHandsOverItsNewStateAndOnlyTheUsers)
{
    CmdTool command;
    Base::Action* const action = command.getAction();
    action->setChecked(true);
    EXPECT_TRUE(command.states.empty());
    EXPECT_TRUE(action->isChecked());
    action->getQAction()->trigger();
    action->getQAction()->trigger();
    EXPECT_EQ(command.states, (std::vector{0, 1}));
}

TEST(Command, CancelThatACommandLetsOutIsLogged)
{
    std::vector<std::string> lines;
    Base::ConsoleSingleton::Instance().setListener(
        [&](std::string const& line) { lines.push_back(line); });
    CmdTurn command;
    command.failure = "Aborting...";
    EXPECT_NO_THROW(command.invoke(0));
    Base::ConsoleSingleton::Instance().setListener({});
    EXPECT_EQ(lines, std::vector<std::string>{"Command Abort."});
}

TEST(Command, WhateverACommandThrowsIsToldAndEndsItAlone)
{
    struct Case
    {
        std::function<void()> work;
        char const* told;
    };
    std::vector<Case> const cases{
        {[] { throw Mell::Exception("Open a part first."); }, "Open a part first."},
        {[] { throw std::bad_alloc(); },
         "There is not enough free memory; close other programs and try again."},
        {[] { throw std::runtime_error("Broken."); }, "Broken."},
        {[] { throw ""; }, "This could not be done."},
        {[] { throw 7; }, "This could not be done."},
    };
    CmdTurn command;
    for (Case const& each : cases) {
        command.work = each.work;
        AnsweredMessages messages;
        EXPECT_NO_THROW(command.invoke(0)) << each.told;
        EXPECT_EQ(messages.texts, QStringList{each.told});
    }
}

TEST(Command, PictureFollowsTheTheme)
{
    CmdTurn command;
    EXPECT_EQ(command.getMenuPixmap(), ":/icons/icons/turn.png");
    g_ThemeColor = 16;
    EXPECT_EQ(command.getMenuPixmap(), ":/icons/icons/turn_dark.png");
    g_ThemeColor = 0;
}

TEST(Command, ToolTipHtmlHasTextsAndPicture)
{
    CmdTurn command;
    QString const html = command.getToolTipHTML();
    EXPECT_TRUE(html.contains("<b>Turn</b>"));
    EXPECT_TRUE(html.contains("Turn the part(s)."));
    EXPECT_TRUE(html.contains("src=\":/icons/icons/turn.png\""));
}

TEST(CommandManager, OwnsItsCommandsAndKeepsTheFirstOfAName)
{
    CmdTurn::alive = 0;
    {
        Base::CommandManager commands;
        auto* const first = new CmdTurn;
        auto* const tool = new CmdTool;
        EXPECT_TRUE(commands.addCommand(first));
        EXPECT_TRUE(commands.addCommand(tool));
        EXPECT_FALSE(commands.addCommand(new CmdTurn));
        EXPECT_EQ(commands.getCommandByName("Std_Turn"), first);
        EXPECT_EQ(commands.getCommandByName("Std_None"), nullptr);
        EXPECT_EQ(commands.getAllCommands(), (std::vector<Base::Command*>{first, tool}));
        EXPECT_EQ(CmdTurn::alive, 2);
    }
    EXPECT_EQ(CmdTurn::alive, 0);
}

TEST(CommandManager, PlacesActionsOnWidgets)
{
    Base::CommandManager commands;
    auto* const command = new CmdTurn;
    commands.addCommand(command);
    QMenu menu;
    QToolButton button;
    EXPECT_TRUE(commands.addTo("Std_Turn", &menu));
    EXPECT_TRUE(commands.addTo("Std_Turn", &button));
    EXPECT_FALSE(commands.addTo("Std_None", &menu));
    EXPECT_EQ(menu.actions().size(), 1);
    EXPECT_EQ(button.defaultAction(), menu.actions().front());
    button.click();
    EXPECT_EQ(command->states, std::vector{0});
}

TEST(CommandManager, EnablesWhatIsActive)
{
    Base::CommandManager commands;
    auto* const command = new CmdTurn;
    commands.addCommand(command);
    command->getAction();
    command->active = false;
    commands.updateActions();
    EXPECT_FALSE(command->getAction()->getQAction()->isEnabled());
    command->active = true;
    commands.updateActions();
    EXPECT_TRUE(command->getAction()->getQAction()->isEnabled());
}

TEST(CommandManager, SurvivesAnActionThatGoesWithItsWindow)
{
    Base::CommandManager commands;
    auto* const command = new CmdTurn;
    commands.addCommand(command);
    delete command->getAction();
    EXPECT_FALSE(command->hasAction());
    commands.updateActions();
    EXPECT_NE(command->getAction(), nullptr);
}

TEST(ActionButton, OfACheckBoxShowsOneWithItsText)
{
    CmdTurn command;
    QToolButton button;
    MellStyle style;
    button.setStyle(&style);
    Base::Action action(&command, nullptr);
    action.setText("Show edges");
    action.setCheckable(true);
    action.addTo(&button);
    button.resize(200, 40);
    auto const picture = [&](bool isChecked) {
        action.setChecked(isChecked);
        QImage image(button.size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        button.render(&image);
        return image;
    };
    QImage const pressed = picture(true);
    action.setShowAsCheckBox(true);
    EXPECT_TRUE(action.isShowAsCheckBox());
    QImage const on = picture(true), off = picture(false);
    EXPECT_NE(on, pressed);
    EXPECT_NE(on, off);
    // The text and the ground are the same with the box checked and without.
    int differing = 0;
    for (int x = 100; x < 200; ++x)
        for (int y = 0; y < 40; ++y)
            differing += on.pixel(x, y) != off.pixel(x, y);
    EXPECT_EQ(differing, 0);
    action.setShowAsCheckBox(false);
    EXPECT_EQ(picture(true), pressed);
}
