// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CutRun.h"
#include "cli/Numbers.h"
#include "cli/SectionJob.h"
#include "cli/SectionSurvey.h"
#include "cli/SubCommands.h"
#include "platform/document/MeshDocument.h"
#include "tools/SceneBox.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>

namespace {

Freecut::PlaneSize sizeOf(SectionOptions const& options, Mesh::Document const& document)
{
    float const suitable = Freecut::suitableSize(Freecut::boxOfAllParts(document));
    return options.size().value_or(Freecut::PlaneSize{.width = suitable, .height = suitable});
}

void describe(Report& head, SectionOptions const& options, Freecut::PlaneSize const& size)
{
    UPoint3<float> const center = options.center();
    UVector3<float> const normal = options.normal();
    head["connectors"] = options.connectors.name();
    head["plane"] = {{"center", {tidy(center.X()), tidy(center.Y()), tidy(center.Z())}},
                     {"normal", {tidy(normal.X()), tidy(normal.Y()), tidy(normal.Z())}},
                     {"size", {tidy(size.width), tidy(size.height)}},
                     {"bounded", options.bounded}};
    head["dryRun"] = options.dryRun;
}

std::string counted(std::size_t count, std::string const& noun)
{
    return grouped(count) + " " + noun + (count == 1 ? "" : "s");
}

void printSurvey(CutPart const& part)
{
    SectionFacts const& section = *part.section;
    std::string text = part.label + ": " + decimal(float(section.area)) + " mm2 in " +
                       counted(section.contours, "contour");
    if (section.positions)
        text += ", room for " + counted(section.positions->size(), "connector");
    std::printf("%s\n", text.c_str());
    if (section.positions)
        for (UPoint3<float> const& p : *section.positions)
            std::printf("  %s %s %s\n", decimal(p.X()).c_str(), decimal(p.Y()).c_str(),
                        decimal(p.Z()).c_str());
}

int runSection(SectionOptions const& options)
{
    options.check();
    CutRun run("section", options);
    return run.perform([&] {
        Freecut::PlaneSize const size = sizeOf(options, run.document());
        describe(run.reportHead(), options, size);
        auto const plane = Freecut::makeTangentPlane(options.center(), options.normal(), size);
        run.cutEach([&](CutPart& part) {
            if (!run.isDry()) {
                cutByPlane(run.document(), part, *plane, options, run.wantsReport());
                return;
            }
            surveySection(part, *plane, options);
            if (options.common.wantsTable())
                printSurvey(part);
        });
    });
}

}  // namespace

void addSection(CLI::App& commandLine, Action& action)
{
    CLI::App* const command = commandLine.add_subcommand(
        "section",
        "Cut parts by a plane, with pins, holes or a lap joint to join the pieces again. "
        "All numbers are millimetres.");
    auto const options = std::make_shared<SectionOptions>();
    options->addTo(*command);
    command->footer(
        "Examples:\n"
        "  freecut section bracket.stl --center 0,0,12.5 --normal 0,0,1\n"
        "  freecut section arm.stl --center 40,0,0 --normal 1,0,0.2 --pins --radius 1.5\n"
        "  freecut section vase.stl --center 0,0,50 --normal 0,0,1 --lap-joint --based-on outer\n"
        "  freecut section arm.stl --center 40,0,0 --normal 1,0,0 --holes --dry-run --json -");
    command->callback([options, &action] { action = [options] { return runSection(*options); }; });
}
