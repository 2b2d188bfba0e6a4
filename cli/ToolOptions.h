// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutOptions.h"
#include "cli/ToolScene.h"

#include <optional>

/// The command line of a cut by a solid tool; the subclasses add the tool's own shape.
class ToolOptions : public CutOptions
{
public:
    virtual ~ToolOptions() = default;

    /// Where a picture of the outlines goes; empty for nowhere.
    std::string picture;

    void addTo(CLI::App& command);

    /// The sub-command.
    virtual std::string name() const = 0;
    /// Makes the tool and gives it its shape.
    virtual Freecut::VolumeGraphicObject* draw(ToolScene& scene) const = 0;

    // These throw UsageError that says what to change.
    int viewIndex() const;
    float clearance() const;
    /// As clearanceDirection of a tool.
    int direction() const;
    float cutTill() const;
    bool hasClearance() const { return !m_clearance.empty(); }
    bool hasCutTill() const { return !m_cutTill.empty(); }
    /// What a tolerance that has no meaning makes of the tool, in a sentence; or empty.
    virtual std::string changeByTolerance() const { return {}; }
    /// All of it, before anything is read.
    virtual void check() const;

protected:
    virtual void addShape(CLI::App& command) = 0;

private:
    // As typed.
    std::string m_view;
    std::string m_clearance;
    std::string m_direction;
    std::string m_cutTill;
};

/// A length from the command line that must be 0.001 mm at least. Throws UsageError.
float parseExtent(std::string const& text, std::string const& option);
/// Two coordinates. Throws UsageError.
UPoint2<float> parsePoint(std::string const& text, std::string const& option);
