// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CutRun.h"
#include "cli/DocumentParts.h"
#include "cli/SubCommands.h"

#include <CLI/App.hpp>

#include <memory>

namespace {

/// The part itself is its only piece.
void keepWhole(CutPart& part)
{
    part.pieces.push_back(pieceOf(*part.object));
}

int runConvert(CutOptions const& options, Caller& caller)
{
    CutRun run("convert", options, caller);
    return run.perform([&] { run.cutEach(keepWhole); });
}

}  // namespace

void addConvert(CLI::App& commandLine, Action& action)
{
    CLI::App* const command = commandLine.add_subcommand(
        "convert",
        "Write parts in another format or unit, unchanged but for points that coincide, which are "
        "joined.");
    auto const options = std::make_shared<CutOptions>();
    // What is open may stay so: nothing has been done to it.
    options->pieces.allowOpen = true;
    options->addSources(*command);
    options->addNamePattern(*command);
    options->pieces.addFilesTo(*command);
    command->footer(
        "Examples:\n"
        "  freecut convert scan.off --format stl\n"
        "  freecut convert *.stl --unit inch --format 3mf -o millimetres\n"
        "\n"
        "Each part of a file is written by itself, under its name.");
    command->callback([options, &action] {
        action = [options](Caller& caller) { return runConvert(*options, caller); };
    });
}
