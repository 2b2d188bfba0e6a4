// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CommonOptions.h"
#include "cli/Numbers.h"
#include "cli/Report.h"
#include "cli/SourceFiles.h"
#include "cli/SubCommands.h"
#include "platform/jobs/SequencerLauncher.h"
#include "platform/services/Repair.h"

#include <CLI/CLI.hpp>

#include <array>
#include <cstdio>
#include <memory>
#include <utility>

namespace {

using Counts = Repair::EvaluateErrors::Counts;

struct ErrorKind
{
    char const* text;
    char const* field;
    std::size_t Counts::*count;
};

constexpr std::array<ErrorKind, 7> errorKinds = {{
    {"border edges", "borderEdges", &Counts::borderEdges},
    {"edges with more than two triangles", "nonManifoldEdges", &Counts::nonManifoldEdges},
    {"edges with inconsistent orientation", "inconsistentEdges", &Counts::inconsistentEdges},
    {"degenerate triangles", "degenerateTriangles", &Counts::degenerateTriangles},
    {"duplicate triangles", "duplicateTriangles", &Counts::duplicateTriangles},
    {"self-intersections", "selfIntersections", &Counts::selfIntersections},
    {"misoriented shells", "misorientedShells", &Counts::misorientedShells},
}};

Counts countErrors(SourcePart const& part)
{
    Base::SequencerLauncher display(("Checking " + part.file).c_str(), 100, true);
    display.setCancelEnabled(true);
    Repair::EvaluateErrors errors(part.kernel.get());
    errors.evaluate(Repair::EvaluateErrors::ERROR_ALL, false, true,
                    [&](int percent) { display.setProgress(std::uint64_t(percent)); });
    return errors.counts();
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
    return "(" + decimal(p.X()) + ", " + decimal(p.Y()) + ", " + decimal(p.Z()) + ")";
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
    printLine("volume", fixed(facts.volume, 3) + " mm3");
    printLine("area", fixed(facts.area, 3) + " mm2");
    printLine("closed", facts.closed ? "yes" : "no");
    char const* label = "errors";
    for (ErrorKind const& kind : errorKinds)
        printLine(std::exchange(label, ""), grouped(counts.*kind.count) + " " + kind.text);
}

int runInfo(CommonOptions const& options)
{
    applyCommonOptions(options);
    checkReportTarget(options.report, options.files);
    Report parts = Report::array();
    for (SourcePart const& part : readSources(options.files)) {
        MeshFacts const facts = measureMesh(*part.kernel);
        Counts const counts = countErrors(part);
        parts.push_back(partReport(part, facts, counts));
        if (options.wantsTable())
            printPart(part, facts, counts);
    }
    if (!options.report.empty())
        writeReport(options.report, {{"command", "info"}, {"parts", parts}});
    return 0;
}

}  // namespace

void addInfo(CLI::App& commandLine, Action& action)
{
    CLI::App* const command = commandLine.add_subcommand(
        "info", "Tell size, volume and errors of parts. All numbers are millimetres.");
    auto const options = std::make_shared<CommonOptions>();
    options->addTo(*command);
    command->footer("Example:\n  freecut info bracket.stl --json -");
    command->callback([options, &action] { action = [options] { return runInfo(*options); }; });
}
