// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutOptions.h"
#include "cli/ToolScene.h"
#include "tools/StoredTool.h"

#include <optional>

namespace CLI {
class Option;
}

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
    /// Makes the tool and gives it its shape: that of the options, or of the file that --tool names.
    Freecut::VolumeGraphicObject* draw(ToolScene& scene) const;

    // These throw UsageError that says what to change.

    /// Reads the file of the tool, if there is one, and checks all of the options before any part is
    /// read.
    void load();
    Freecut::ViewPlace view() const;

protected:
    virtual void addShape(CLI::App& command) = 0;
    /// Reads files that describe it.
    virtual void readShape() {}
    virtual void checkShape() const = 0;
    virtual Freecut::VolumeGraphicObject* drawShape(ToolScene& scene) const = 0;

    // Throw UsageError that says what to change.
    float clearance() const;
    /// As clearanceDirection of a tool.
    int direction() const;
    float cutTill() const;
    bool hasClearance() const { return !m_clearance.empty(); }
    bool hasCutTill() const { return !m_cutTill.empty(); }

private:
    void addToolFile(CLI::App& command, std::vector<CLI::Option*> const& shape);

    std::string m_toolFile;
    std::optional<Freecut::StoredTool> m_stored;
    /// What has to be given where no file gives it.
    std::vector<CLI::Option const*> m_needed;

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
