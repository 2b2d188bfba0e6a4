// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/CommandBase.h"

#include <QPointer>

#include <string>

namespace Base {

/// A command with a name, under which menus, tool bars and dialogs find it. It can be invoked
/// without an action, and so without a window.
class Command : public CommandBase
{
public:
    explicit Command(char const* name);
    ~Command() override;

    Action* getAction() override;
    void languageChange() override;
    /// A plain action with the command's texts, picture and accelerator; needs a QApplication.
    Action* createAction() override;
    char const* className() const override;

    /// What the command does.
    ///
    /// state  0, or for a checkable action 1 if it is checked now
    virtual void activated(int state) = 0;
    /// Chooses the action's picture by the theme.
    virtual void updateActionIcon();
    /// Whether the command makes sense now.
    virtual bool isActive();
    /// What the host calls on a trigger: activated(), with failures that it lets out shown to
    /// the user.
    virtual void invoke(int state);
    /// A page about the command; empty if there is none.
    virtual QString getHelpUrl() const;

    std::string const& getName() const { return m_name; }
    QString const& getGroupName() const { return m_group; }
    /// Whether the action has been made.
    bool hasAction() const;

protected:
    /// Puts the command's texts into an action, translated in the context of that class name.
    void applyCommandData(char const* className, Action* action) const;

private:
    std::string m_name;
    QPointer<QObject> m_action;
};

}  // namespace Base
