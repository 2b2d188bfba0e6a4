// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CutOptions.h"

#include <CLI/CLI.hpp>

void CutOptions::addSources(CLI::App& command)
{
    common.addTo(command);
    addKeepGoing(command, keepGoing);
}

void CutOptions::addPieces(CLI::App& command)
{
    command.add_flag("--fail-if-uncut", failIfUncut,
                     "Fail for a part in which nothing was cut, instead of writing a copy");
    pieces.addTo(command);
}
