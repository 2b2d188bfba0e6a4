// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/CheckableCommand.h"

#include "platform/ui/Action.h"

Base::Action* CheckableCommand::createAction()
{
    Base::Action* const action = HostCommand::createAction();
    action->setCheckable(true);
    action->setChecked(isChecked());
    return action;
}
