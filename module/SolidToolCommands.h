// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/ToolCommands.h"

/// Switches the mouse tool of a solid on and off in the view in front.
class SolidToolCommand : public ToolCommand
{
public:
    /// toolName  the class name of the mouse tool
    SolidToolCommand(CommandTexts const& texts, char const* toolName)
        : ToolCommand(texts), m_toolName(toolName)
    {}

    void activated(int state) override;

private:
    bool runsIn(Base::GLView const& view) const override;

    char const* m_toolName;
};

class CmdFreecutPolygon : public SolidToolCommand
{
public:
    CmdFreecutPolygon();
};

class CmdFreecutCylinder : public SolidToolCommand
{
public:
    CmdFreecutCylinder();
};

class CmdFreecutCuboid : public SolidToolCommand
{
public:
    CmdFreecutCuboid();
};
