// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CutReport.h"
#include "cli/DocumentParts.h"
#include "cli/SavePieces.h"
#include "cli/SubCommands.h"
#include "cli/ZCutJob.h"
#include "host/jobs/Threads.h"
#include "platform/document/MeshDocument.h"
#include "platform/ui/Application.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace {

int runZCut(ZCutOptions const& options)
{
    Stopwatch total;
    applyCommonOptions(options.common);
    checkReportTarget(options.common.report, options.common.files);
    PieceFiles files(options.pieces.folder, options.pieces.overwrite());
    CutSeconds seconds;
    Stopwatch stage;
    std::vector<SourcePart> sources = readSources(options.common.files);
    std::vector<float> const heights = options.heightsFor(sources.size());
    seconds.load = stage.restart();

    auto* const document = Application::Instance->newDocument("freecut");
    bool const wantsReport = !options.common.report.empty();
    std::vector<CutPart> parts = addParts(*document, sources, wantsReport);
    stage.restart();
    runZCutJob(*document, parts, heights, options);
    seconds.cut = stage.restart();
    savePieces(parts, options.pieces, files);
    seconds.save = stage.restart();

    if (wantsReport) {
        Report head;
        head["command"] = "zcut";
        writeReport(options.common.report,
                    cutReport(head, parts, seconds, total, Threads::threadCount()));
    }
    files.keep();
    if (options.common.wantsTable())
        printTable(parts);
    return 0;
}

}  // namespace

void addZCut(CLI::App& commandLine, Action& action)
{
    CLI::App* const command = commandLine.add_subcommand(
        "zcut", "Cut parts by a horizontal plane. All numbers are millimetres.");
    auto const options = std::make_shared<ZCutOptions>();
    options->addTo(*command);
    command->footer(
        "Examples:\n"
        "  freecut zcut bracket.stl --height 12.5\n"
        "  freecut zcut a.stl b.3mf --heights 10,22.5 -o pieces --format 3mf\n"
        "  freecut zcut big.stl --height 40 --no-repair --json report.json");
    command->callback([options, &action] { action = [options] { return runZCut(*options); }; });
}
