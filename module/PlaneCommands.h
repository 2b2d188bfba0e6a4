// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/ToolCommands.h"
#include "selection/PlaneType.h"

/// Switches the plane tool on with one way to define the plane, and off again. Where the plane tool
/// runs in another way, it goes on in this one, and its plane is gone.
class PlaneCommand : public ToolCommand
{
public:
    PlaneCommand(CommandTexts const& texts, Freecut::PlaneType type)
        : ToolCommand(texts), m_type(type)
    {}

    void activated(int state) override;

private:
    bool runsIn(Base::GLView const& view) const override;
    void switchOn() const;
    void switchOff() const;

    Freecut::PlaneType m_type;
};

class CmdFreecutPlane3Pts : public PlaneCommand
{
public:
    CmdFreecutPlane3Pts()
        : PlaneCommand(textsOfCommand("CmdFreecutPlane3Pts"), Freecut::PLANE_3POINTS)
    {}
};

class CmdFreecutPlaneTangent : public PlaneCommand
{
public:
    CmdFreecutPlaneTangent()
        : PlaneCommand(textsOfCommand("CmdFreecutPlaneTangent"), Freecut::PLANE_TANGENT)
    {}
};

class CmdFreecutPlaneVertical : public PlaneCommand
{
public:
    CmdFreecutPlaneVertical()
        : PlaneCommand(textsOfCommand("CmdFreecutPlaneVertical"), Freecut::PLANE_VERTICAL)
    {}
};

class CmdFreecutPlaneXYPlane : public PlaneCommand
{
public:
    CmdFreecutPlaneXYPlane()
        : PlaneCommand(textsOfCommand("CmdFreecutPlaneXYPlane"), Freecut::PLANE_XY)
    {}
};

class CmdFreecutPlaneXZPlane : public PlaneCommand
{
public:
    CmdFreecutPlaneXZPlane()
        : PlaneCommand(textsOfCommand("CmdFreecutPlaneXZPlane"), Freecut::PLANE_XZ)
    {}
};

class CmdFreecutPlaneYZPlane : public PlaneCommand
{
public:
    CmdFreecutPlaneYZPlane()
        : PlaneCommand(textsOfCommand("CmdFreecutPlaneYZPlane"), Freecut::PLANE_YZ)
    {}
};
