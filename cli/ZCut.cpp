// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CutRun.h"
#include "cli/Errors.h"
#include "cli/SubCommands.h"
#include "cli/ZCutJob.h"
#include "cli/streaming/LevelPlanes.h"
#include "cli/streaming/StreamChoice.h"
#include "cli/streaming/StreamJob.h"

#include <CLI/App.hpp>

#include <memory>

namespace {

UBox3<float> boxOf(FacetFile const& file)
{
    if (!file.isFile())
        throw UsageError(
            "--every reads a part twice if it is cut while it is read; give a file instead of "
            "standard input.");
    UBox3<float> box;
    file.read([&](std::span<Formats::Facet const> facets) {
        for (Formats::Facet const& facet : facets)
            for (UPoint3<float> const& corner : facet)
                box.Add(corner);
    });
    return box;
}

int streamZCut(CutRun& run, ZCutOptions const& options)
{
    return run.perform([&] {
        float const distance = options.isSliced() ? options.distance() : 0;
        std::vector<float> const heights = options.isSliced()
                                               ? std::vector<float>(run.parts().size())
                                               : options.heightsFor(run.parts().size());
        run.cutEach([&](CutPart& part) {
            auto const planesFor = [&](FacetFile const& file) {
                return std::make_unique<LevelPlanes>(
                    distance > 0 ? heightsOfSlices(boxOf(file), distance)
                                 : std::vector<double>{heights[part.place]});
            };
            cutWhileReading(part, planesFor, distance > 0 ? "_cut1" : "_cut", options, run.files());
        });
    });
}

int runZCut(ZCutOptions options, Caller& caller)
{
    Streaming const streaming = chooseStreaming(options, caller, {});
    CutRun run("zcut", options, caller);
    tellOfStreaming(run, streaming);
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
