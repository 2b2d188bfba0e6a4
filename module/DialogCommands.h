// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/CutCommand.h"

/// Opens a dialog that cuts the parts of the active document; active while there is a part.
class DialogCommand : public CutCommand
{
public:
    using CutCommand::CutCommand;

    bool isActive() override;
};

/// Opens the section dialog. Without that dialog it ends without effect.
class CmdPlanecut : public DialogCommand
{
public:
    CmdPlanecut() : DialogCommand(textsOfCommand("CmdPlanecut")) {}
    void activated(int state) override;
};

/// Opens the polygon dialog. Without that dialog it ends without effect.
class CmdPolygoncut : public DialogCommand
{
public:
    CmdPolygoncut() : DialogCommand(textsOfCommand("CmdPolygoncut")) {}
    void activated(int state) override;
};
