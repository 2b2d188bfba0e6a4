// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CutRun.h"
#include "cli/Errors.h"
#include "cli/SubCommands.h"
#include "cli/ZCutJob.h"
#include "cli/streaming/StreamJob.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace {

int streamZCut(CutRun& run, ZCutOptions const& options)
{
    requireStreamable(options);
    return run.perform([&] {
        float const distance = options.isSliced() ? options.distance() : 0;
        std::vector<float> const heights = options.isSliced()
                                               ? std::vector<float>(run.parts().size())
                                               : options.heightsFor(run.parts().size());
        run.cutEach([&](CutPart& part) {
            cutWhileReading(part, {{heights[part.place]}, distance}, options, run.files());
        });
    });
}

int runZCut(ZCutOptions options, Caller& caller)
{
    bool const isTooLarge = caller.wantsFiles() && !options.stream && mustBeStreamed(options);
    options.stream |= isTooLarge;
    if (options.stream && !caller.wantsFiles())
        throw UsageError(
            "--stream writes pieces to files while a part is read; name a folder for them.");
    CutRun run("zcut", options, caller);
    if (isTooLarge)
        run.remark(CutRemark::Kind::RequestChanged,
                   "The parts do not fit into memory: they are cut while they are read, and not "
                   "mended.");
    if (options.stream)
        return streamZCut(run, options);
    return run.perform([&] {
        if (options.isSliced()) {
            float const distance = options.distance();
            run.cutEach([&](CutPart& part) { cutIntoSlices(part, distance); });
            return;
        }
        std::vector<float> const heights = options.heightsFor(run.parts().size());
        run.cutEach([&](CutPart& part) {
            cutAtHeight(run.document(), part, heights[part.place], options.repair);
        });
    });
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
        "  freecut zcut tower.stl --every 40\n"
        "  freecut zcut a.stl b.3mf --heights 10,22.5 -o pieces --format 3mf\n"
        "  freecut zcut big.stl --height 40 --no-repair --json report.json");
    command->callback([options, &action] {
        action = [options](Caller& caller) { return runZCut(*options, caller); };
    });
}
