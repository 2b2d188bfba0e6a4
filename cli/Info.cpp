// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CommandReport.h"
#include "cli/ExitStatus.h"
#include "cli/Numbers.h"
#include "cli/SubCommands.h"
#include "host/services/PartReview.h"
#include "platform/jobs/Exceptions.h"
#include "platform/jobs/SequencerLauncher.h"

#include <CLI/App.hpp>

#include <array>
#include <cstdio>
#include <memory>
#include <optional>
#include <utility>

namespace {

struct InfoOptions
{
    CommonOptions common;
    bool keepGoing = false;
    /// Errors of the parts are a failure.
    bool check = false;
};

using Counts = Repair::EvaluateErrors::Counts;

struct ErrorKind
{
    char const* text;
    char const* field;
    std::size_t Counts::*count;
};

constexpr std::array<ErrorKind, 7> errorKinds = {{
    {"open edges", "borderEdges", &Counts::borderEdges},
    {"edges with more than two triangles", "nonManifoldEdges", &Counts::nonManifoldEdges},
    {"edges between triangles that face different ways", "inconsistentEdges",
     &Counts::inconsistentEdges},
    {"triangles without area", "degenerateTriangles", &Counts::degenerateTriangles},
    {"triangles that are there twice", "duplicateTriangles", &Counts::duplicateTriangles},
    {"pairs of triangles that cross", "selfIntersections", &Counts::selfIntersections},
    {"shells that are inside out", "misorientedShells", &Counts::misorientedShells},
}};

/// Takes the part's geometry.
PartReview review(SourcePart& part)
{
    Base::SequencerLauncher display(("Checking " + part.file).c_str(), 100, true);
    display.setCancelEnabled(true);
    return reviewPart(std::move(part.kernel),
                      [&](int percent) { display.setProgress(std::uint64_t(percent)); });
}

Report partReport(SourcePart const& part, MeshFacts const& facts, Counts const& counts)
{
    Report report;
    report["source"] = part.file;
    report["name"] = part.name;
    appendFacts(report, facts);
    for (ErrorKind const& kind : errorKinds)
        report["errors"][kind.field] = counts.*kind.count;
    return report;
}

std::string corner(UPoint3<float> const& p)
{
    return "(" + figures(p.X()) + ", " + figures(p.Y()) + ", " + figures(p.Z()) + ")";
}

void printLine(std::string const& label, std::string const& value)
{
    std::printf("  %-11s%s\n", label.c_str(), value.c_str());
}

void printPart(SourcePart const& part, MeshFacts const& facts, Counts const& counts)
{
    std::printf("%s: %s\n", part.file.c_str(), part.name.c_str());
    printLine("triangles", grouped(facts.triangles));
    printLine("vertices", grouped(facts.vertices));
    printLine("shells", grouped(facts.shells));
    printLine("box", corner(facts.box.min) + " to " + corner(facts.box.max) + " mm");
    printLine("volume", facts.closed ? measure(facts.volume) + " mm3" : "none, it is not closed");
    printLine("area", measure(facts.area) + " mm2");
    printLine("closed", facts.closed ? "yes" : "no, " + openPlacesOf(facts));
    char const* label = "errors";
    for (ErrorKind const& kind : errorKinds)
        printLine(std::exchange(label, ""), grouped(counts.*kind.count) + " " + kind.text);
}

/// Tells about the parts of a source, and how many errors they have together.
std::size_t tellOf(PartSource const& source, CommonOptions const& options, Report& parts)
{
    std::size_t errors = 0;
    for (SourcePart& part : source.read()) {
        auto const [facts, counts] = review(part);
        errors += counts.total();
        parts.push_back(partReport(part, facts, counts));
        if (options.wantsTable())
            printPart(part, facts, counts);
    }
    return errors;
}

int runInfo(InfoOptions const& options, Caller& caller)
{
    CommandReport report("info", options.common, caller);
    applyCommonOptions(options.common, caller);
    Report parts = Report::array();
    std::optional<Failure> failure;
    std::size_t errors = 0;
    report.time("check", [&] {
        for (PartSource const& source : caller.sources(options.common))
            try {
                errors += tellOf(source, options.common, parts);
            } catch (Mell::AbortException const&) {
                throw;
            } catch (...) {
                Failure const here = failureInFlight();
                caller.complain(here.message);
                parts.push_back({{"source", source.name}, {"error", here.message}});
                failure = failure.value_or(here);
                if (!options.keepGoing)
                    break;
            }
    });
    int const status = failure                       ? failure->status
                       : options.check && errors > 0 ? EXIT_CUT_FAILED
                                                     : EXIT_DONE;
    report.write(parts, status, {});
    return status;
}

}  // namespace

void addInfo(CLI::App& commandLine, Action& action)
{
    CLI::App* const command = commandLine.add_subcommand(
        "info", "Tell size, volume and errors of parts. All numbers are millimetres.");
    auto const options = std::make_shared<InfoOptions>();
    options->common.addTo(*command);
    addManyFiles(*command, options->common, options->keepGoing);
    command->add_flag("--check", options->check, "Fail with exit status 1 if a part has errors");
    command->footer(
        "Examples:\n"
        "  freecut info bracket.stl --json -\n"
        "  freecut info *.stl --check --keep-going --quiet");
    command->callback([options, &action] {
        action = [options](Caller& caller) { return runInfo(*options, caller); };
    });
}
