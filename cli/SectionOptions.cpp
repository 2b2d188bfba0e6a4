// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/SectionOptions.h"

#include "cli/Errors.h"
#include "cli/Numbers.h"

#include <CLI/App.hpp>

#include <cmath>

namespace {

/// The least extent of a plane.
constexpr float leastSize = 0.001f;

}  // namespace

void SectionOptions::addTo(CLI::App& command)
{
    addSources(command);
    command.add_option("--center", centerText, "A point of the plane, its centre")
        ->type_name("X,Y,Z")
        ->required();
    command.add_option("--normal", normalText, "Where the plane faces: the upper piece lies there")
        ->type_name("X,Y,Z")
        ->required();
    command
        .add_option("--size", sizeText,
                    "Width and height of the rectangle of a bounded plane (default: as large as "
                    "the parts). With a vertical normal the width runs along X")
        ->type_name("W,H");
    command.add_flag("--bounded", bounded,
                     "Cut only where the whole section lies within the rectangle");
    connectors.addTo(command);
    command.add_flag("--keep-original", keepOriginal,
                     "Write the parts themselves too, beside their pieces");
    command.add_flag("--dry-run", dryRun,
                     "Measure the section and place the connectors, but cut and write nothing");
    addStream(command, "plane meets");
    addNames(command, "UPPER,LOWER",
             "Number 1 is the upper piece and 2 the lower one; with connectors it is the other way "
             "round");
    addPieces(command);
}

UPoint3<float> SectionOptions::center() const
{
    std::vector<float> const numbers = parseNumbers(centerText);
    if (numbers.size() != 3)
        throw UsageError(
            "--center takes three coordinates in millimetres such as 10,0,2.5, but "
            "got \"" +
            centerText + "\".");
    return {numbers[0], numbers[1], numbers[2]};
}

UVector3<float> SectionOptions::normal() const
{
    std::vector<float> const numbers = parseNumbers(normalText);
    if (numbers.size() != 3)
        throw UsageError("--normal takes three numbers such as 0,0,1, but got \"" + normalText +
                         "\".");
    UVector3<double> const direction(numbers[0], numbers[1], numbers[2]);
    double const length = direction.GetLength();
    if (!(length > 0))
        throw UsageError("--normal takes a direction such as 0,0,1; 0,0,0 is none.");
    UVector3<double> const unit = direction / length;
    return {float(unit.X()), float(unit.Y()), float(unit.Z())};
}

std::optional<Freecut::PlaneSize> SectionOptions::size() const
{
    if (sizeText.empty())
        return std::nullopt;
    std::vector<float> const numbers = parseNumbers(sizeText);
    if (numbers.size() != 2)
        throw UsageError("--size takes width and height in millimetres such as 80,40, but got \"" +
                         sizeText + "\".");
    for (float const extent : numbers)
        if (extent < leastSize)
            throw UsageError("--size must be at least " + decimal(leastSize) +
                             " mm in both directions, but is " + sizeText + ".");
    return Freecut::PlaneSize{.width = numbers[0], .height = numbers[1]};
}

std::vector<std::string> SectionOptions::givenForMemory() const
{
    std::vector<std::string> given;
    if (connectors.cutType() != SECTIONCUT_PLANE)
        given.push_back(std::string("--") + connectors.name());
    if (bounded)
        given.emplace_back("--bounded");
    return given;
}

void SectionOptions::check() const
{
    center();
    normal();
    size();
    connectors.check();
}
