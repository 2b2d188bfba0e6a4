// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/corpus/Operations.h"

#include "tests/support/MeshBuilders.h"
#include "tests/support/PieceRules.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <memory>
#include <numbers>

namespace corpus {
namespace {

using judge::Expected;
using judge::Rule;
using judge::Source;
using Point = UPoint3<double>;
using Arguments = std::vector<std::string>;

std::string text(double value)
{
    char digits[40];
    std::snprintf(digits, sizeof digits, "%.9g", double(float(value)));
    return digits;
}

std::string text(std::vector<double> const& values)
{
    std::string joined;
    for (double const value : values)
        joined += (joined.empty() ? "" : ",") + text(value);
    return joined;
}

double sizeOf(Source const& source, int axis)
{
    auto const box = source.field().bounds();
    return double(box.max[axis]) - box.min[axis];
}

/// Of the box, at a share of its extents that no symmetric part has a point at.
Point placeIn(Source const& source, double share)
{
    auto const box = source.field().bounds();
    Point p;
    for (int k = 0; k < 3; ++k)
        p[k] = double(float(box.min[k] + share * sizeOf(source, k)));
    return p;
}

judge::Plane obliquePlane(Source const& source)
{
    UVector3<double> normal(0.31, 0.17, 0.93);
    normal.Normalize();
    return {placeIn(source, 0.4731), normal};
}

Job zCut(Source const& source, std::string const& file, double height, bool doesRepair)
{
    judge::Plane const plane{{0, 0, double(float(height))}, {0, 0, 1}};
    Arguments arguments{"zcut", file, "--height", text(height)};
    if (!doesRepair)
        arguments.emplace_back("--no-repair");
    return {arguments, {}, judge::planeRule(plane, source.margin())};
}

double commonHeight(Source const& source)
{
    return source.field().bounds().min.Z() + 0.4371 * sizeOf(source, 2);
}

Job zCutWithRepair(Source const& source, std::string const& file)
{
    return zCut(source, file, commonHeight(source), true);
}

Job zCutWithoutRepair(Source const& source, std::string const& file)
{
    return zCut(source, file, commonHeight(source), false);
}

/// Through the point whose height is the median: what lies in the plane has to go somewhere.
Job zCutThroughAPoint(Source const& source, std::string const& file)
{
    std::vector<float> heights;
    for (auto const& p : source.soup().points)
        heights.push_back(p.Z());
    std::nth_element(heights.begin(), heights.begin() + std::ptrdiff_t(heights.size() / 2),
                     heights.end());
    return zCut(source, file, heights[heights.size() / 2], false);
}

Job section(Source const& source, std::string const& file, Arguments const& connectors,
            double reach)
{
    judge::Plane const plane = obliquePlane(source);
    Arguments arguments{"section",  file,
                        "--center", text({plane.centre.X(), plane.centre.Y(), plane.centre.Z()}),
                        "--normal", text({plane.normal.X(), plane.normal.Y(), plane.normal.Z()})};
    arguments.insert(arguments.end(), connectors.begin(), connectors.end());
    return {arguments,
            {},
            reach > 0 ? judge::connectorRule(plane, source.margin(), reach)
                      : judge::planeRule(plane, source.margin())};
}

Job plainSection(Source const& source, std::string const& file)
{
    return section(source, file, {}, 0);
}

Job pinsOrHoles(Source const& source, std::string const& file, std::string const& kind)
{
    double const size = source.diagonal();
    return section(source, file,
                   {kind, "--radius", text(0.02 * size), "--height", text(0.05 * size), "--spacing",
                    text(0.07 * size), "--tolerance", text(0.001 * size), "--side-clearance",
                    text(0.001 * size), "--top-clearance", text(0.002 * size), "--face-clearance",
                    text(0.001 * size)},
                   0.055 * size);
}

Job pins(Source const& source, std::string const& file)
{
    return pinsOrHoles(source, file, "--pins");
}

Job holes(Source const& source, std::string const& file)
{
    return pinsOrHoles(source, file, "--holes");
}

Job lapJoint(Source const& source, std::string const& file)
{
    double const size = source.diagonal();
    return section(source, file,
                   {"--lap-joint", "--notch-depth", text(0.04 * size), "--side-distance",
                    text(0.02 * size), "--notch-clearance", text(0.002 * size), "--front-clearance",
                    text(0.002 * size), "--back-clearance", text(0.002 * size)},
                   0.045 * size);
}

/// Signed distance from a tool's outline, negative inside; none where it is not known well enough.
using Outline = std::function<double(Point const&)>;

/// clearance  half the gap; tolerance  how far the outline's facets may lie beside the shape
Rule outlineRule(Outline const& outline, double clearance, double tolerance)
{
    auto const at = [=](Point const& p, int winding) -> std::optional<Expected> {
        double const distance = outline(p);
        if (std::abs(std::abs(distance) - clearance) <= tolerance)
            return std::nullopt;
        if (std::abs(distance) < clearance)
            return Expected{{{}, {}}, 0};
        return judge::inPiece(distance < 0 ? 0 : 1, winding);
    };
    return {at, clearance == 0};
}

Job polygon(Source const& source, std::string const& file)
{
    Point const centre = placeIn(source, 0.51);
    double const radius = 0.34 * std::min(sizeOf(source, 0), sizeOf(source, 1));
    std::vector<std::array<double, 2>> corners;
    std::string list;
    for (int i = 0; i < 5; ++i) {
        double const angle = 2 * std::numbers::pi * i / 5 + 0.1;
        corners.push_back({double(float(centre.X() + radius * std::cos(angle))),
                           double(float(centre.Y() + radius * std::sin(angle)))});
        list += (i ? ";" : "") + text({corners.back()[0], corners.back()[1]});
    }
    auto const outline = [corners](Point const& p) {
        double most = -1e300;
        for (std::size_t i = 0; i < corners.size(); ++i) {
            auto const& [ax, ay] = corners[i];
            auto const& [bx, by] = corners[(i + 1) % corners.size()];
            double const length = std::hypot(bx - ax, by - ay);
            most = std::max(most, ((p.X() - ax) * (by - ay) - (p.Y() - ay) * (bx - ax)) / length);
        }
        return most;
    };
    return {{"polygon", file, "--view", "top", "--points", list},
            {},
            outlineRule(outline, 0, 4 * source.margin())};
}

Job cylinder(Source const& source, std::string const& file)
{
    Point const centre = placeIn(source, 0.49);
    double const radius = 0.31 * std::min(sizeOf(source, 0), sizeOf(source, 1));
    double const clearance = 0.06 * radius;
    auto const outline = [=](Point const& p) {
        return std::hypot(p.X() - centre.X(), p.Y() - centre.Y()) - radius;
    };
    return {{"cylinder", file, "--view", "top", "--center", text({centre.X(), centre.Y()}),
             "--radius", text(radius), "--tolerance", text(0.005 * radius), "--clearance",
             text(clearance), "--direction", "both"},
            {},
            outlineRule(outline, clearance, 0.012 * radius + 4 * source.margin())};
}

Job cuboid(Source const& source, std::string const& file)
{
    Point const centre = placeIn(source, 0.48);
    double const length = 0.5 * sizeOf(source, 0), width = 0.45 * sizeOf(source, 1);
    double const round = 0.2 * std::min(length, width), clearance = 0.2 * round;
    double const till = source.field().bounds().min.Z() + 0.37 * sizeOf(source, 2);
    double const angle = -11 * std::numbers::pi / 180;
    auto const outline = [=](Point const& p) {
        double const x = p.X() - centre.X(), y = p.Y() - centre.Y();
        double const u = std::abs(x * std::cos(angle) + y * std::sin(angle)) - length / 2 + round;
        double const v = std::abs(y * std::cos(angle) - x * std::sin(angle)) - width / 2 + round;
        return std::hypot(std::max(u, 0.0), std::max(v, 0.0)) + std::min(std::max(u, v), 0.0) -
               round;
    };
    Rule const above = outlineRule(outline, clearance, 0.3 * clearance + 4 * source.margin());
    double const margin = 2 * clearance + 4 * source.margin();
    auto const rule = [=](Point const& p, int winding) -> std::optional<Expected> {
        if (p.Z() > till + margin)
            return above.at(p, winding);
        // Whether the gap goes around the tool's end is not asked.
        return p.Z() < till - margin ? std::optional(judge::inPiece(1, winding)) : std::nullopt;
    };
    return {{"cuboid",        file,          "--view",
             "top",           "--center",    text({centre.X(), centre.Y()}),
             "--length",      text(length),  "--width",
             text(width),     "--angle",     "-11",
             "--round",       text(round),   "--clearance",
             text(clearance), "--direction", "both",
             "--cut-till",    text(till)},
            {},
            {rule, false}};
}

/// A ball of flat facets somewhat beside the middle, or the part itself moved a little.
Soup ballFor(Source const& source)
{
    Soup ball = sphere(float(0.27 * source.diagonal()), 7, 9);
    Point const centre = placeIn(source, 0.44);
    for (auto& p : ball.points)
        p = {float(p.X() + centre.X()), float(p.Y() + centre.Y()), float(p.Z() + centre.Z())};
    return ball;
}

Soup nearCopyOf(Source const& source)
{
    Soup copy = source.soup();
    auto const step = float(1e-5 * source.diagonal());
    for (auto& p : copy.points)
        p = {p.X() + step, p.Y() + step / 2, p.Z() - step / 3};
    return copy;
}

Job boolean(Source const& source, std::string const& file, Soup const& tool, char const* option,
            judge::Combination combination)
{
    return {{"boolean", file, "tool.stl", option},
            {{"tool.stl", tool}},
            judge::combinationRule(tool, combination, source.margin())};
}

Job unite(Source const& source, std::string const& file)
{
    return boolean(source, file, ballFor(source), "--union", judge::Combination::Union);
}

Job intersect(Source const& source, std::string const& file)
{
    return boolean(source, file, ballFor(source), "--intersect", judge::Combination::Intersection);
}

Job subtract(Source const& source, std::string const& file)
{
    return boolean(source, file, ballFor(source), "--subtract", judge::Combination::Difference);
}

Job split(Source const& source, std::string const& file)
{
    return boolean(source, file, ballFor(source), "--split", judge::Combination::Split);
}

Job subtractNearCopy(Source const& source, std::string const& file)
{
    return boolean(source, file, nearCopyOf(source), "--subtract", judge::Combination::Difference);
}

Job repair(Source const&, std::string const& file)
{
    return {{"repair", file}, {}, judge::sameSolidRule(), true};
}

Job zCutAndRepairAll(Source const& source, std::string const& file)
{
    Job job = zCut(source, file, commonHeight(source), true);
    job.arguments.insert(job.arguments.end(), {"--repair", "all"});
    job.rule.isPartition = false;
    job.mends = true;
    return job;
}

}  // namespace

std::vector<Operation> const& operations()
{
    static std::vector<Operation> const all{{"zcut", zCutWithRepair},
                                            {"zcut --no-repair", zCutWithoutRepair},
                                            {"through a point", zCutThroughAPoint},
                                            {"section", plainSection},
                                            {"pins", pins},
                                            {"holes", holes},
                                            {"lap joint", lapJoint},
                                            {"polygon", polygon},
                                            {"cylinder", cylinder},
                                            {"cuboid", cuboid},
                                            {"union", unite},
                                            {"intersect", intersect},
                                            {"subtract", subtract},
                                            {"split", split},
                                            {"less near copy", subtractNearCopy},
                                            {"repair", repair},
                                            {"zcut --repair all", zCutAndRepairAll}};
    return all;
}

}  // namespace corpus
