// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ToolOptions.h"

#include "cli/Errors.h"
#include "cli/Numbers.h"
#include "cli/StoredShape.h"
#include "tools/ToolLimits.h"

#include <CLI/App.hpp>

#include <algorithm>

namespace {

std::vector<std::string> const views{"front", "back", "top", "bottom", "left", "right"};
std::vector<std::string> const directions{"inside", "outside", "both"};

int placeOf(std::string const& name, std::vector<std::string> const& names)
{
    return int(std::find(names.begin(), names.end(), name) - names.begin());
}

}  // namespace

float parseExtent(std::string const& text, std::string const& option)
{
    float const extent = parseMillimetres(text, option);
    constexpr auto least = float(Freecut::ToolLimits::leastLength);
    if (!(extent >= least))
        throw UsageError(option + " must be at least " + decimal(least) + " mm, but is " + text +
                         "." + smallLengthAdvice(extent));
    return extent;
}

UPoint2<float> parsePoint(std::string const& text, std::string const& option)
{
    std::vector<float> const numbers = parseNumbers(text);
    if (numbers.size() != 2)
        throw UsageError(option +
                         " takes two coordinates in millimetres such as 10,2.5, but got \"" + text +
                         "\".");
    return {numbers[0], numbers[1]};
}

void ToolOptions::addTo(CLI::App& command)
{
    addSources(command);
    std::size_t const before = command.get_options().size();
    command
        .add_option("--view", m_view,
                    "From where the tool is drawn. Its coordinates are x,z from the front and the "
                    "back, x,y from top and bottom, y,z from left and right")
        ->check(CLI::IsMember(views))
        ->type_name("VIEW")
        ->required();
    addShape(command);
    CLI::Option* const gap =
        command.add_option("--clearance", m_clearance, "Leave a gap of this width")->type_name("C");
    command
        .add_option("--direction", m_direction,
                    "On which side of the outline the gap lies: inside, outside or both "
                    "(default: inside). With both it is twice as wide")
        ->check(CLI::IsMember(directions))
        ->type_name("SIDE")
        ->needs(gap);
    command
        .add_option("--cut-till", m_cutTill,
                    "End the tool at this coordinate along the view, instead of behind the parts")
        ->type_name("V");
    std::vector<CLI::Option*> shape = command.get_options();
    shape.erase(shape.begin(), shape.begin() + std::ptrdiff_t(before));
    addToolFile(command, shape);
    command.add_flag("--keep-original", keepOriginal,
                     "Write the parts themselves too, beside their pieces");
    command.add_flag("--dry-run", dryRun, "Derive the outlines, but cut and write no piece");
    command
        .add_option("--svg", picture,
                    "Write a picture of the outlines and the parts' silhouettes, replacing it")
        ->type_name("FILE");
    addNames(command, "INSIDE,OUTSIDE", "Number 1 is the piece within the tool, 2 the one outside");
    addPieces(command);
}

void ToolOptions::addToolFile(CLI::App& command, std::vector<CLI::Option*> const& shape)
{
    CLI::Option* const file =
        command
            .add_option("--tool", m_toolFile,
                        "Cut with the tool of this file, such as the window saves. It holds all of "
                        "the shape and from where it is drawn")
            ->type_name("FILE");
    for (CLI::Option* const option : shape) {
        file->excludes(option);
        if (!option->get_required())
            continue;
        option->required(false);
        m_needed.push_back(option);
    }
}

void ToolOptions::load()
{
    if (!m_toolFile.empty()) {
        m_stored = readStoredShape(m_toolFile, name());
        return;
    }
    for (CLI::Option const* const option : m_needed)
        if (option->count() == 0)
            throw UsageError(option->get_name() +
                             " is required, or --tool with the file of a drawn tool.");
    clearance();
    cutTill();
    readShape();
    checkShape();
}

Freecut::VolumeGraphicObject* ToolOptions::draw(ToolScene& scene) const
{
    return m_stored ? drawStoredShape(scene, *m_stored, m_toolFile) : drawShape(scene);
}

Freecut::ViewPlace ToolOptions::view() const
{
    if (m_stored)
        return m_stored->view;
    Freecut::ViewPlace view;
    view.standard = placeOf(m_view, views);
    return view;
}

float ToolOptions::clearance() const
{
    return hasClearance() ? parseExtent(m_clearance, "--clearance") : 0;
}

int ToolOptions::direction() const
{
    return m_direction.empty() ? 0 : placeOf(m_direction, directions);
}

float ToolOptions::cutTill() const
{
    return hasCutTill() ? parseMillimetres(m_cutTill, "--cut-till") : 0;
}
