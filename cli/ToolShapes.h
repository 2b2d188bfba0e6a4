// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/OutlineOption.h"
#include "cli/ToolOptions.h"

/// A prism over a polygon, whose edges may have teeth.
class PolygonOptions : public ToolOptions
{
public:
    std::string name() const override { return "polygon"; }

protected:
    void addShape(CLI::App& command) override;
    void readShape() override;
    void checkShape() const override;
    Freecut::VolumeGraphicObject* drawShape(ToolScene& scene) const override;

private:
    std::vector<UPoint2<float>> points() const;

    std::size_t cornerCount() const;

    std::string m_points;
    OutlineOption m_outline;
    std::vector<std::string> m_teeth;
    std::string m_round;
};

/// A cylinder, with a rectangular key or without.
class CylinderOptions : public ToolOptions
{
public:
    std::string name() const override { return "cylinder"; }

protected:
    void addShape(CLI::App& command) override;
    void checkShape() const override;
    Freecut::VolumeGraphicObject* drawShape(ToolScene& scene) const override;

private:
    struct Notch
    {
        bool isUsed = false;
        float width = 2;
        float length = 2;
        float angle = 0;
    };
    Notch notch() const;
    float tolerance() const;

    std::string m_center;
    std::string m_radius;
    std::string m_tolerance;
    std::string m_notch;
};

/// A cuboid.
class CuboidOptions : public ToolOptions
{
public:
    std::string name() const override { return "cuboid"; }

protected:
    void addShape(CLI::App& command) override;
    void checkShape() const override;
    Freecut::VolumeGraphicObject* drawShape(ToolScene& scene) const override;

private:
    float angleRadians() const;

    std::string m_center;
    std::string m_length;
    std::string m_width;
    std::string m_angle;
    std::string m_round;
};
