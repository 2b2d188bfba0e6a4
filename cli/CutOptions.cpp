// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CutOptions.h"

#include "cli/Errors.h"
#include "cli/NamePattern.h"
#include "cli/PieceFiles.h"

#include <CLI/App.hpp>

void CutOptions::addSources(CLI::App& command)
{
    common.addTo(command);
    addManyFiles(command, common, keepGoing);
}

void CutOptions::addRepair(CLI::App& command)
{
    auto const mark = [this](RepairScope scope) { return repair == scope ? " (default)" : ""; };
    CLI::Option* const scope =
        command
            .add_option_function<std::string>(
                "--repair",
                [this](std::string const& word) {
                    repair = word == "all" ? RepairScope::All : RepairScope::Touched;
                },
                std::string("Check each piece and mend it if need be: only what the cut made or "
                            "touched") +
                    mark(RepairScope::Touched) + ", or all of it")
            ->check(CLI::IsMember({"touched", "all"}))
            ->type_name("WHAT");
    command
        .add_flag_callback(
            "--no-repair", [this] { repair = RepairScope::None; },
            std::string("Leave the pieces as they are") + mark(RepairScope::None))
        ->excludes(scope);
}

void CutOptions::addStream(CLI::App& command, char const* meeting)
{
    command.add_flag("--stream", stream,
                     std::string("Cut parts while they are read, in memory for what the ") +
                         meeting +
                         " alone; STL and binary PLY only, and nothing is mended. Chosen by "
                         "itself for parts that do not fit into memory");
}

void CutOptions::addNames(CLI::App& command, char const* meanings, char const* numbers)
{
    command
        .add_option("--name", names,
                    std::string("Name the two pieces PART_") +
                        "NAME instead of by numbers, or all pieces by a pattern such as "
                        "\"{stem}_{piece:02}\". " +
                        numbers)
        ->type_name(std::string(meanings) + "|PATTERN")
        ->delimiter(',')
        ->expected(1, 2)
        ->allow_extra_args(false);
}

void CutOptions::addNamePattern(CLI::App& command)
{
    command
        .add_option(
            "--name", names,
            "Name what is written by a pattern such as \"{stem}_{piece:02}\", in which also "
            "{part} and {name} stand for the part and for the usual name")
        ->type_name("PATTERN")
        ->expected(1);
}

void CutOptions::checkNames() const
{
    if (names.empty())
        return;
    if (names.size() == 1 && isNamePattern(names[0]))
        return void(NamePattern(names[0]));
    if (names.size() != 2 || safeFileName(names[0]) == safeFileName(names[1]) || names[0].empty() ||
        names[1].empty())
        throw UsageError(
            "--name takes two different names with a comma between them, such as "
            "top,bottom, or a pattern such as \"{stem}_{piece:02}\".");
}

void CutOptions::addPieces(CLI::App& command)
{
    command.add_flag("--fail-if-uncut", failIfUncut,
                     "Fail for a part in which nothing was cut, instead of writing a copy");
    addRepair(command);
    pieces.addTo(command);
}
