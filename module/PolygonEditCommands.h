// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/CutCommand.h"

/// The context menu of the polygon tool. Without a polygon tool the commands end without effect.
class CmdPolygonCutDeletePoint : public CutCommand
{
public:
    CmdPolygonCutDeletePoint() : CutCommand(textsOfCommand("CmdPolygonCutDeletePoint")) {}
    void activated(int state) override;
};

class CmdPolygonCutDeleteSelectedTeeth : public CutCommand
{
public:
    CmdPolygonCutDeleteSelectedTeeth()
        : CutCommand(textsOfCommand("CmdPolygonCutDeleteSelectedTeeth"))
    {}
    void activated(int state) override;
};

class CmdPolygonCutDeleteAllTeeth : public CutCommand
{
public:
    CmdPolygonCutDeleteAllTeeth() : CutCommand(textsOfCommand("CmdPolygonCutDeleteAllTeeth")) {}
    void activated(int state) override;
};
