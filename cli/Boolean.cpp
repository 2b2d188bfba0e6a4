// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/BooleanJob.h"
#include "cli/CutReport.h"
#include "cli/Errors.h"
#include "cli/SavePieces.h"
#include "cli/SubCommands.h"
#include "host/jobs/Threads.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>

namespace {

/// Reads the one solid of a file.
SourcePart readSolid(std::string const& file)
{
    std::vector<SourcePart> parts = readSources({file});
    if (parts.size() != 1)
        throw UsageError("A boolean takes one solid from each file, but " + file + " holds " +
                         std::to_string(parts.size()) + "; put each into a file of its own.");
    return std::move(parts.front());
}

void report(BooleanOptions const& options, std::vector<CutPart> const& parts,
            CutSeconds const& seconds, Stopwatch const& total)
{
    Report head;
    head["command"] = "boolean";
    head["operation"] = nameOf(options.operation);
    writeReport(options.common.report,
                cutReport(head, parts, seconds, total, Threads::threadCount()));
}

int runBoolean(BooleanOptions const& options)
{
    Stopwatch total;
    applyCommonOptions(options.common);
    checkReportTarget(options.common.report, options.common.files);
    PieceFiles files(options.pieces.folder, options.pieces.overwrite());
    bool const wantsReport = !options.common.report.empty();
    CutSeconds seconds;
    Stopwatch stage;
    SourcePart const a = readSolid(options.common.files[0]);
    SourcePart const b = readSolid(options.common.files[1]);
    seconds.load = stage.restart();

    std::vector<CutPart> parts;
    for (SourcePart const* const source : {&a, &b})
        parts.push_back(describePart(*source, *source->kernel, wantsReport));
    stage.restart();
    std::vector<BooleanPiece> const pieces =
        runBooleanJob(*a.kernel, *b.kernel, options.operation, a.name);
    for (BooleanPiece const& piece : pieces)
        parts[0].pieces.push_back({piece.name, piece.kernel.get(), nullptr, {}});
    seconds.cut = stage.restart();
    savePieces(parts, options.pieces, files);
    seconds.save = stage.restart();

    if (wantsReport)
        report(options, parts, seconds, total);
    files.keep();
    if (options.common.wantsTable()) {
        printTable(parts);
        if (pieces.empty())
            std::printf("Nothing is left; no file was written.\n");
    }
    return 0;
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
    command->callback([options, &action] { action = [options] { return runBoolean(*options); }; });
}
