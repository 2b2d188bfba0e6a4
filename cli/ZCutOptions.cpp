// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ZCutOptions.h"

#include "cli/Errors.h"
#include "cli/Numbers.h"

#include <CLI/App.hpp>

namespace {

std::string checkHeight(std::string const& text)
{
    try {
        parseMillimetres(text, "A cut");
        return {};
    } catch (UsageError const& e) {
        return e.what();
    }
}

}  // namespace

ZCutOptions::ZCutOptions()
{
    repair = RepairScope::Touched;
}

void ZCutOptions::addTo(CLI::App& command)
{
    addSources(command);
    auto* const heightGroup = command.add_option_group("Height", "Where to cut; give one of them");
    heightGroup->add_option("--height", height, "Cut all parts at this height")
        ->type_name("H")
        ->check(checkHeight);
    heightGroup
        ->add_option("--heights", heights,
                     "Cut each part at a height of its own, in the order of the parts")
        ->type_name("H1,H2")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(checkHeight);
    heightGroup
        ->add_option(
            "--every", every,
            "Cut each part into slices of this height, from its lowest point on; the uppermost "
            "has number 1")
        ->type_name("MM")
        ->check(checkHeight);
    heightGroup->require_option(1);
    addStream(command, "planes meet");
    addNames(command, "UPPER,LOWER", "Number 1 is the upper piece, 2 the lower one");
    addPieces(command);
}

float ZCutOptions::distance() const
{
    float const distance = parseMillimetres(every, "--every");
    if (!(distance > 0))
        throw UsageError("--every takes a height above 0 such as 40, but got \"" + every + "\".");
    if (names.size() == 2)
        throw UsageError(
            "--name names two pieces, but the slices of --every have numbers; a pattern "
            "such as \"{stem}_{piece:02}\" names them all.");
    return distance;
}

std::vector<float> ZCutOptions::heightsFor(std::size_t partCount) const
{
    if (!height.empty())
        return std::vector<float>(partCount, parseMillimetres(height, "--height"));
    if (heights.size() != partCount)
        throw UsageError("--heights takes one height for each part: the files hold " +
                         std::to_string(partCount) + " but " + std::to_string(heights.size()) +
                         " were given.");
    std::vector<float> values;
    for (std::string const& text : heights)
        values.push_back(parseMillimetres(text, "--heights"));
    return values;
}
