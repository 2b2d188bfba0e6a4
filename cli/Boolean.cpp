// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/BooleanJob.h"
#include "cli/CutRun.h"
#include "cli/Errors.h"
#include "cli/SubCommands.h"

#include <CLI/App.hpp>

#include <algorithm>
#include <cstdio>
#include <memory>

namespace {

/// Throws UsageError for a file that holds several solids, or a folder that holds several files.
void checkSolids(std::vector<CutPart> const& parts)
{
    auto const isInFile = [](CutPart const& part) { return part.isOnlyOfFile; };
    auto const extra = std::find_if_not(parts.begin(), parts.end(), isInFile);
    if (extra != parts.end())
        throw UsageError("A boolean takes one solid from each file, but " + extra->source +
                         " holds several; put each into a file of its own.");
    if (parts.size() != 2)
        throw UsageError("A boolean takes two files, but " + std::to_string(parts.size()) +
                         " were given.");
}

int runBoolean(BooleanOptions const& options, Caller& caller)
{
    CutRun run("boolean", options, caller);
    run.reportHead()["operation"] = nameOf(options.operation);
    return run.perform([&] {
        checkSolids(run.parts());
        CutPart& a = run.parts()[0];
        CutPart const& b = run.parts()[1];
        run.cut(a, [&] { combineParts(a, b, options.operation); });
        if (a.pieces.empty() && options.common.wantsTable())
            std::printf("Nothing is left; no file was written.\n");
    });
}

}  // namespace

void addBoolean(CLI::App& commandLine, Action& action)
{
    CLI::App* const command = commandLine.add_subcommand(
        "boolean", "Join, intersect, subtract or split two solids. All numbers are millimetres.");
    auto const options = std::make_shared<BooleanOptions>();
    options->addTo(*command);
    command->footer(
        "Examples:\n"
        "  freecut boolean vase.stl ball.stl --subtract\n"
        "  freecut boolean a.stl b.3mf --union -o joined --format 3mf\n"
        "  freecut boolean part.stl tool.stl --split --json report.json\n"
        "\n"
        "Pieces are named after A: A_union, A_intersect, A_subtract; A_inside and A_outside for\n"
        "--split. An empty result is no failure and writes no file.");
    command->callback([options, &action] {
        action = [options](Caller& caller) { return runBoolean(*options, caller); };
    });
}
