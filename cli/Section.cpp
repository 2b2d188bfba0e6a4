// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CutRun.h"
#include "cli/Errors.h"
#include "cli/Numbers.h"
#include "cli/SectionJob.h"
#include "cli/SubCommands.h"
#include "cli/SurveyReport.h"
#include "cli/streaming/FreePlane.h"
#include "cli/streaming/StreamChoice.h"
#include "cli/streaming/StreamJob.h"
#include "platform/document/MeshDocument.h"
#include "tools/SceneBox.h"

#include <CLI/App.hpp>

#include <cstdio>
#include <memory>

namespace {

/// parts  the box of all of them
Freecut::PlaneSize sizeOf(SectionOptions const& options, UBox3<float> const& parts)
{
    float const suitable = Freecut::suitableSize(parts);
    return options.size().value_or(Freecut::PlaneSize{.width = suitable, .height = suitable});
}

/// size  none if the plane is as large as each part
void describe(Report& head, SectionOptions const& options,
              std::optional<Freecut::PlaneSize> const& size)
{
    UPoint3<float> const center = options.center();
    UVector3<float> const normal = options.normal();
    head["connectors"] = options.connectors.name();
    head["plane"] = {{"center", {tidy(center.X()), tidy(center.Y()), tidy(center.Z())}},
                     {"normal", {tidy(normal.X()), tidy(normal.Y()), tidy(normal.Z())}},
                     {"size", size ? Report{tidy(size->width), tidy(size->height)} : Report()},
                     {"bounded", options.bounded}};
    head["dryRun"] = options.dryRun;
}

std::string counted(std::size_t count, std::string const& noun)
{
    return grouped(count) + " " + noun + (count == 1 ? "" : "s");
}

void printConnector(std::size_t number, ChosenConnector const& connector)
{
    using State = ChosenConnector::State;
    UPoint3<float> const& p = connector.position;
    std::string text = decimal(p.X()) + " " + decimal(p.Y()) + " " + decimal(p.Z());
    if (connector.isAdded)
        text += "  added";
    if (connector.state == State::LeftOut)
        text += "  left out";
    if (connector.state == State::GivesWay)
        text += "  gives way";
    if (connector.leavesPart)
        text += "  leaves the part";
    std::printf("  %3zu  %s\n", number, text.c_str());
}

void printSurvey(CutPart const& part)
{
    SectionFacts const& section = *part.section;
    std::string text = part.label + ": " + decimal(float(section.area)) + " mm2 in " +
                       counted(section.contours, "contour");
    if (section.positions)
        text += ", room for " + counted(section.positions->size(), "connector");
    std::printf("%s\n", text.c_str());
    for (std::size_t i = 0; i < section.connectors.size(); ++i)
        printConnector(i + 1, section.connectors[i]);
}

/// Connectors by hand are those of one section.
void refuseSeveral(CutRun& run, SectionOptions const& options)
{
    ConnectorOptions const& connectors = options.connectors;
    if (run.parts().size() > 1 && !connectors.choice().isEmpty())
        throw UsageError(std::string(connectors.atTexts.empty() ? "--without" : "--at") +
                         " is for one part at a time, but there are " +
                         grouped(run.parts().size()) + "; cut them one by one.");
}

void cutSection(CutRun& run, CutPart& part, Freecut::PlaneGraphicObject& plane,
                SectionOptions const& options)
{
    ConnectorOptions const& connectors = options.connectors;
    bool const hasChoice = !connectors.choice().isEmpty();
    // A cut tells of the section itself.
    std::optional<SectionSurvey> survey;
    if (run.isDry() || hasChoice) {
        survey = surveyOf(part, plane, options);
        enterFacts(part, *survey, connectors);
    }
    if (!run.isDry())
        return cutByPlane(run.document(), part, plane, options, hasChoice ? &*survey : nullptr,
                          run.wantsReport());
    enterRemarks(part, *survey, connectors);
    if (options.common.wantsTable())
        printSurvey(part);
}

int streamSection(CutRun& run, SectionOptions const& options)
{
    return run.perform([&] {
        describe(run.reportHead(), options, options.size());
        run.cutEach([&](CutPart& part) {
            auto const planesFor = [&](FacetFile const&) {
                return std::make_unique<FreePlane>(
                    FreePlane::Place{options.center(), options.normal(), options.size()},
                    run.wantsReport());
            };
            cutWhileReading(part, planesFor, "(cut)", options, run.files());
        });
        // How large parts are is known now.
        UBox3<float> parts;
        for (CutPart const& part : run.parts())
            parts.Add(part.facts.box);
        describe(run.reportHead(), options, sizeOf(options, parts));
    });
}

int runSection(SectionOptions options, Caller& caller)
{
    options.connectors.loadPreset();
    options.check();
    Streaming const streaming = chooseStreaming(options, caller, options.givenForMemory());
    CutRun run("section", options, caller);
    tellOfStreaming(run, streaming);
    if (options.stream)
        return streamSection(run, options);
    return run.perform([&] {
        Freecut::PlaneSize const size = sizeOf(options, Freecut::boxOfAllParts(run.document()));
        describe(run.reportHead(), options, size);
        auto const plane = Freecut::makeTangentPlane(options.center(), options.normal(), size);
        refuseSeveral(run, options);
        run.cutEach([&](CutPart& part) { cutSection(run, part, *plane, options); });
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
        "  freecut section arm.stl --center 40,0,0 --normal 1,0,0 --holes --dry-run --json -\n"
        "  freecut section arm.stl --center 40,0,0 --normal 1,0,0 --pins --without 3 --at "
        "40,2.5,1");
    command->callback([options, &action] {
        action = [options](Caller& caller) { return runSection(*options, caller); };
    });
}
