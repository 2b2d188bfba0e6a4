// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/CutCommand.h"

/// Cuts the selected parts at the height of the view's slider, without a dialog. It returns when
/// the cut is done; events are handled meanwhile.
class OrbeCmdZcut : public CutCommand
{
public:
    OrbeCmdZcut() : CutCommand(textsOfCommand("OrbeCmdZcut")) {}

    void activated(int state) override;
    bool isActive() override;
};
