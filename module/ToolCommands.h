// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/CutCommand.h"

#include <QObject>

namespace Base {
class GLView;
}

/// Switches a mouse tool of the view in front on and off; its action is pressed while the tool
/// runs. Without a view or the tool it ends without effect.
class ToolCommand : public CutCommand, public QObject
{
public:
    using CutCommand::CutCommand;

    Base::Action* createAction() override;
    void activated(int state) override;

private:
    /// Presses or releases the action as the tool runs in the view in front or does not.
    void updateState();
    /// Whether the command's mouse tool runs in a view.
    virtual bool runsIn(Base::GLView const& view) const;
};
