// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/commands/HostCommand.h"

/// A command that switches something on and off, and whose action shows which it is.
class CheckableCommand : public HostCommand
{
public:
    using HostCommand::HostCommand;

    Base::Action* createAction() override;
    /// What the action shows; asked whenever actions are brought in line.
    virtual bool isChecked() const = 0;
};
