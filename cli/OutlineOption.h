// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/ToolScene.h"
#include "drawings/Drawing.h"

#include <optional>
#include <string>

namespace CLI {
class App;
class Option;
}  // namespace CLI

/// The corners of a polygon from a drawing.
class OutlineOption
{
public:
    /// points  the option in whose place it may stand
    void addTo(CLI::App& command, CLI::Option* points);

    bool isGiven() const { return !m_file.empty(); }
    /// Throws UsageError that says what to do.
    void read();

    // After read().

    std::size_t cornerCount() const { return m_path->points.size(); }
    /// In free coordinates; the drawing stands in the view as one sees it in the file.
    std::vector<UPoint2<float>> cornersIn(ToolScene const& scene) const;

private:
    std::string m_file;
    std::string m_unit;
    std::string m_center;
    std::optional<std::size_t> m_number;
    std::optional<Drawings::Path> m_path;
};
