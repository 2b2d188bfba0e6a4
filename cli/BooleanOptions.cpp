// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/BooleanOptions.h"

#include <CLI/App.hpp>

#include <string>
#include <utility>

char const* nameOf(BooleanOperation operation)
{
    switch (operation) {
        case BooleanOperation::Union:
            return "union";
        case BooleanOperation::Intersect:
            return "intersect";
        case BooleanOperation::Subtract:
            return "subtract";
        case BooleanOperation::Split:
            return "split";
    }
    return "";
}

void BooleanOptions::addTo(CLI::App& command)
{
    common.addTo(command);
    command.get_option("FILE")
        ->description("A and B, one solid each: STL, OBJ, PLY, OFF or 3MF files")
        ->expected(2);
    auto* const group = command.add_option_group("Operation", "What to make; give one of them");
    for (auto const& [choice, help] :
         {std::pair(BooleanOperation::Union, "What is in A or in B"),
          std::pair(BooleanOperation::Intersect, "What is in both"),
          std::pair(BooleanOperation::Subtract, "What is in A and not in B"),
          std::pair(BooleanOperation::Split,
                    "A in two pieces: what of it is in B, and what is not")})
        group->add_flag_callback(
            std::string("--") + nameOf(choice), [this, chosen = choice] { operation = chosen; },
            help);
    group->require_option(1);
    addNamePattern(command);
    addRepair(command);
    pieces.addTo(command);
}
