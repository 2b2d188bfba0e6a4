// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CutRun.h"
#include "cli/SubCommands.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/jobs/SequencerLauncher.h"

#include <CLI/App.hpp>

#include <memory>

namespace {

/// Mends a copy of the part, which becomes its only piece.
void mend(CutPart& part)
{
    Base::SequencerLauncher display("Repairing", 100, true);
    display.setCancelEnabled(true);
    auto const kernel = std::make_shared<MeshKernel>(
        static_cast<MeshKernel const*>(part.object->meshProperty->getMesh()));
    kernel->toRclMesh();
    Repair::RepairMethods repair(kernel.get());
    repair.autoRepair_simple_advanced(
        [&](int percent) { display.setProgress(std::uint64_t(percent)); });
    CutPiece& piece = part.pieces.emplace_back();
    piece.name = part.object->getName() + "_repaired";
    piece.kernel = kernel;
    piece.repair = repair.report();
}

int runRepair(CutOptions const& options, Caller& caller)
{
    CutRun run("repair", options, caller);
    return run.perform([&] { run.cutEach(mend); });
}

}  // namespace

void addRepair(CLI::App& commandLine, Action& action)
{
    CLI::App* const command = commandLine.add_subcommand(
        "repair",
        "Mend parts: close holes, resolve crossings, turn what faces the wrong way. What would "
        "change their shape is left and told.");
    auto const options = std::make_shared<CutOptions>();
    options->addSources(*command);
    options->addNamePattern(*command);
    options->pieces.addTo(*command);
    command->footer(
        "Examples:\n"
        "  freecut repair scan.stl\n"
        "  freecut repair *.stl -o mended --keep-going --json report.json\n"
        "\n"
        "Each part is written whole, under its name and \"_repaired\".");
    command->callback([options, &action] {
        action = [options](Caller& caller) { return runRepair(*options, caller); };
    });
}
