// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Cancel.h"
#include "cli/CutRun.h"
#include "cli/Errors.h"
#include "cli/Numbers.h"
#include "cli/SubCommands.h"
#include "cli/ToolJob.h"
#include "cli/ToolPicture.h"
#include "cli/ToolReport.h"
#include "cli/ToolShapes.h"
#include "platform/document/MeshDocument.h"
#include "tools/CylinderProperty.h"
#include "tools/PolygonProperty.h"
#include "tools/VolumeProperty.h"

#include <CLI/App.hpp>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <set>

namespace {

/// An outline below this, in millimetres, is more likely in another unit than meant.
constexpr float smallestOutline = 0.1f;

/// Square millimetres, added up over the loops.
double areaOf(Freecut::Loops const& loops)
{
    double area = 0;
    for (Freecut::Ring const& ring : loops) {
        UVector3<double> sum;
        for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
            UVector3<float> const a = ring[i] - ring[0], b = ring[i + 1] - ring[0];
            sum += UVector3<double>(a.X(), a.Y(), a.Z()) * UVector3<double>(b.X(), b.Y(), b.Z());
        }
        area += sum.GetLength() / 2;
    }
    return area;
}

/// How far the corners that were drawn are from the first of them.
float extentOf(Freecut::VolumeGraphicObject& tool)
{
    std::vector<UPoint3<float>> const& corners = tool.getVolumeProperty().getKeyPoints();
    float extent = 0;
    for (UPoint3<float> const& corner : corners)
        extent = std::max(extent, (corner - corners.front()).GetLength());
    return extent;
}

void checkOutlines(Freecut::ToolOutlines const& outlines, Freecut::VolumeGraphicObject& tool)
{
    if (!outlines.problem.empty())
        throw UsageError(outlines.problem);
    // Coordinates are whole thousandths of a millimetre, so an area below that is rounding.
    if (areaOf(outlines.solidLoops) > 1e-6)
        return;
    float const extent = extentOf(tool);
    throw UsageError("The outline encloses nothing. Give corners that go around an area." +
                     (extent < smallestOutline ? smallLengthAdvice(extent) : std::string()));
}

/// Corners of the outline that are still there although it was to be rounded; straight ones are
/// none.
std::size_t sharpCorners(Freecut::ToolOutlines const& outlines)
{
    std::set<std::array<float, 3>> rounded;
    for (Freecut::Ring const& ring : outlines.roundedLoops)
        for (UPoint3<float> const& p : ring)
            rounded.insert({p.X(), p.Y(), p.Z()});
    std::size_t count = 0;
    for (Freecut::Ring ring : outlines.solidLoops) {
        if (ring.size() > 1 && ring.front() == ring.back())
            ring.pop_back();
        for (std::size_t i = 0; i < ring.size(); ++i) {
            UPoint3<float> const& p = ring[i];
            UVector3<float> in = p - ring[(i + ring.size() - 1) % ring.size()];
            UVector3<float> out = ring[(i + 1) % ring.size()] - p;
            bool const isCorner = (in.Normalize() * out.Normalize()).GetLength() > 1e-3f;
            count += isCorner && rounded.contains({p.X(), p.Y(), p.Z()});
        }
    }
    return count;
}

/// Edges that were to have teeth and are too short for one.
std::size_t toothlessEdges(Freecut::VolumeGraphicObject& tool)
{
    auto const* const polygon =
        dynamic_cast<Freecut::PolygonProperty const*>(&tool.getVolumeProperty());
    if (!polygon)
        return 0;
    std::vector<Freecut::TeethEdge> const& edges = polygon->getEdgeRecords();
    return std::size_t(
        std::count_if(edges.begin(), edges.end(), [](Freecut::TeethEdge const& edge) {
            return edge.hasTeeth && edge.appliedPoints.empty();
        }));
}

/// What a tolerance that has no meaning makes of the tool, in a sentence; or empty.
std::string changeByTolerance(Freecut::VolumeGraphicObject& tool)
{
    auto const* const cylinder =
        dynamic_cast<Freecut::CylinderProperty const*>(&tool.getVolumeProperty());
    if (!cylinder || cylinder->getCircleTolerance() <= cylinder->getRadius())
        return {};
    return "The tolerance is larger than the radius, so the cylinder has few sides. Choose a "
           "smaller --tolerance.";
}

/// Says what has become of the request, where that is something else than was asked for.
void tellChanges(CutRun& run, Freecut::ToolOutlines const& outlines,
                 Freecut::VolumeGraphicObject& tool)
{
    auto const tell = [&](std::string const& text) {
        run.remark(CutRemark::Kind::RequestChanged, text);
    };
    Freecut::VolumeProperty const& record = tool.getVolumeProperty();
    bool const isInward = record.getClearanceEnabled() && record.getClearanceDirection() != 1;
    if (isInward && outlines.innerLoops.empty())
        tell(
            "The clearance leaves nothing of the tool, so the parts are split without a gap. "
            "Choose a smaller --clearance.");
    if (!outlines.residualLoops.empty())
        tell("The outline crosses itself: " + grouped(outlines.residualLoops.size()) +
             (outlines.residualLoops.size() == 1 ? " part of it is" : " parts of it are") +
             " dropped. --svg shows which; give corners that go around once.");
    if (std::size_t const sharp = outlines.roundedLoops.empty() ? 0 : sharpCorners(outlines))
        tell("--round does not fit: " + grouped(sharp) +
             (sharp == 1 ? " corner stays" : " corners stay") +
             " sharp, for the edges are too short. Choose a smaller radius.");
    if (std::size_t const count = toothlessEdges(tool))
        tell(grouped(count) +
             (count == 1 ? " edge is too short for a tooth and stays"
                         : " edges are too short for a tooth and stay") +
             " as drawn. Choose smaller teeth.");
    if (std::string const text = changeByTolerance(tool); !text.empty())
        tell(text);
}

void describe(Report& head, ToolOptions const& options, ToolScene const& scene,
              Freecut::VolumeGraphicObject& tool)
{
    head["tool"] = toolReport(scene, tool);
    head["dryRun"] = options.dryRun;
}

void printOutlines(Freecut::ToolOutlines const& outlines, Freecut::VolumeGraphicObject& tool)
{
    auto const print = [](char const* name, Freecut::Loops const& loops) {
        for (Freecut::Ring const& ring : loops)
            std::printf("%s outline of %s points\n", name, grouped(ring.size()).c_str());
    };
    print("nominal", outlines.solidLoops);
    print("rounded", outlines.roundedLoops);
    print("inner", outlines.innerLoops);
    print("outer", outlines.outerLoops);
    std::printf("%s mm deep\n",
                decimal(tool.getVolumeProperty().getExtrudeVector().GetLength()).c_str());
}

/// Throws as checkReportTarget, and if the report would replace the picture.
void checkPicture(ToolOptions const& options)
{
    checkReportTarget(options.picture, options.common.files);
    if (options.picture.empty() || options.common.report.empty())
        return;
    auto const placeOf = [](std::string const& file) {
        return std::filesystem::weakly_canonical(std::filesystem::absolute(file));
    };
    if (placeOf(options.picture) == placeOf(options.common.report))
        throw UsageError("The report would replace the picture " + options.picture +
                         "; give them different names.");
}

/// The tool with its outlines, whose offsets take up to a second where teeth are many.
Freecut::VolumeGraphicObject& drawn(ToolOptions const& options, ToolScene& scene)
{
    Cancel::AtOnce const atOnce;
    return *options.draw(scene);
}

int runTool(ToolOptions& options, Caller& caller)
{
    options.load();
    checkPicture(options);
    CutRun run(options.name(), options, caller);
    return run.perform([&] {
        ToolScene scene(run.document(), options.view());
        Freecut::VolumeGraphicObject& tool = drawn(options, scene);
        Freecut::ToolOutlines const& outlines = scene.outlinesOf(tool);
        checkOutlines(outlines, tool);
        tellChanges(run, outlines, tool);
        if (!options.picture.empty())
            writeToolPicture(options.picture, scene, tool, run.parts());
        describe(run.reportHead(), options, scene, tool);
        if (!run.isDry())
            run.cutEach([&](CutPart& part) {
                cutByTool(run.document(), part, tool, options.keepOriginal);
            });
        else if (options.common.wantsTable())
            printOutlines(outlines, tool);
    });
}

template <typename Options>
void addTool(CLI::App& commandLine, Action& action, char const* what, char const* examples)
{
    auto const options = std::make_shared<Options>();
    CLI::App* const command = commandLine.add_subcommand(
        options->name(), std::string("Cut parts by ") + what +
                             " that is drawn in a view and runs through them: what lies within it "
                             "comes off. All numbers are millimetres.");
    options->addTo(*command);
    command->footer(examples);
    command->callback([options, &action] {
        action = [options](Caller& caller) { return runTool(*options, caller); };
    });
}

}  // namespace

void addTools(CLI::App& commandLine, Action& action)
{
    addTool<PolygonOptions>(
        commandLine, action, "a polygon",
        "Examples:\n"
        "  freecut polygon vase.stl --view top --points \"0,-50;50,-50;50,50;0,50\"\n"
        "  freecut polygon arm.stl --view front --points \"0,0;20,0;20,30\" --round 2 "
        "--clearance 0.1\n"
        "  freecut polygon arm.stl --view front --points \"0,0;20,0;20,30\" --teeth "
        "\"dovetail:3;width=3;lower=2;height=2;count=4\" --clearance 0.15\n"
        "  freecut polygon plate.stl --view top --outline logo.svg --center 40,20\n"
        "  freecut polygon arm.stl --view front --points \"0,0;20,0;20,30\" --dry-run --svg "
        "outline.svg");
    addTool<CylinderOptions>(
        commandLine, action, "a cylinder",
        "Examples:\n"
        "  freecut cylinder plate.stl --view top --center 10,20 --radius 5\n"
        "  freecut cylinder plate.stl --view top --center 10,20 --radius 5 --notch 2,2,90 "
        "--clearance 0.15 --direction both");
    addTool<CuboidOptions>(
        commandLine, action, "a cuboid",
        "Examples:\n"
        "  freecut cuboid plate.stl --view right --center 0,15 --length 20 --width 10\n"
        "  freecut cuboid plate.stl --view top --center 0,15 --length 20 --width 10 --angle 30 "
        "--cut-till 5");
}

bool isToolChosen(CLI::App const& commandLine)
{
    return commandLine.got_subcommand("polygon") || commandLine.got_subcommand("cylinder") ||
           commandLine.got_subcommand("cuboid");
}
