// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/CutCommand.h"

/// Commands that carry text and picture for a button of the polygon dialog, which does the work.
class ButtonCommand : public CutCommand
{
public:
    using CutCommand::CutCommand;

    void activated(int) override {}
};

class CmdPolygonCutPreview : public ButtonCommand
{
public:
    CmdPolygonCutPreview() : ButtonCommand(textsOfCommand("CmdPolygonCutPreview")) {}
};

class CmdPolygonCutStopPreview : public ButtonCommand
{
public:
    CmdPolygonCutStopPreview() : ButtonCommand(textsOfCommand("CmdPolygonCutStopPreview")) {}
};

class CmdPolygonCutReset : public ButtonCommand
{
public:
    CmdPolygonCutReset() : ButtonCommand(textsOfCommand("CmdPolygonCutReset")) {}
};
