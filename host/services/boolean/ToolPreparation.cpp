// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/ToolPreparation.h"

#include "host/mesh/ExactSigns.h"
#include "host/services/SelfIntersections.h"
#include "host/services/exact/Corefinement.h"
#include "platform/jobs/Exceptions.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace {

using Box = TriangleTree::Box;

/// Tools with more triangles than this are only searched where shells come near each other.
constexpr std::size_t thoroughLimit = 20000;
/// More shells than this are taken to come near each other.
constexpr std::size_t shellLimit = 4000;

std::vector<Box> shellBoxes(MeshArrays const& tool, TopologyReport const& topology)
{
    std::vector<Box> boxes(topology.isClosedShell.size());
    for (std::size_t t = 0; t < tool.triangles.size(); ++t)
        for (int k = 0; k < 3; ++k) {
            UPoint3<float> const& p = tool.point(t, k);
            boxes[topology.shellOf[t]].add({{p[0], p[1], p[2], 0}, {p[0], p[1], p[2], 0}});
        }
    return boxes;
}

bool doShellsComeNear(MeshArrays const& tool, TopologyReport const& topology)
{
    std::vector<Box> boxes = shellBoxes(tool, topology);
    if (boxes.size() > shellLimit)
        return true;
    std::sort(boxes.begin(), boxes.end(),
              [](Box const& a, Box const& b) { return a.low[0] < b.low[0]; });
    for (std::size_t i = 0; i < boxes.size(); ++i)
        for (std::size_t j = i + 1; j < boxes.size() && boxes[j].low[0] <= boxes[i].high[0]; ++j)
            if (boxes[i].overlaps(boxes[j]))
                return true;
    return false;
}

bool doesOverlapItself(MeshArrays const& tool, StageProgress& progress)
{
    TopologyReport const topology = checkTopology(tool, progress);
    if (tool.triangles.size() > thoroughLimit && !doShellsComeNear(tool, topology))
        return false;
    TriangleTree const tree(tool, topology, progress);
    return findIntersections(tool, topology, tree, progress).pairs > 0;
}

MeshArrays withoutFlatTriangles(MeshArrays const& arrays, StageProgress& progress)
{
    MeshKernel kernel(makeMesh(arrays).release());
    kernel.getMesh()->DeleteDegenerateTris();
    kernel.getMesh()->DeleteUnreferenceVerts();
    kernel.getMesh()->UpdateVertsID();
    return copyArrays(kernel, Frame::World, progress);
}

}  // namespace

void requireFinite(MeshArrays const& operand, char const* name)
{
    bool const isFinite =
        std::all_of(operand.points.begin(), operand.points.end(), [](UPoint3<float> const& p) {
            return std::isfinite(p[0]) && std::isfinite(p[1]) && std::isfinite(p[2]);
        });
    if (!isFinite)
        throw Mell::Exception(std::string(name) +
                              " has a point whose coordinates are no numbers. Repair it and cut "
                              "again.");
}

bool hasFlatTriangle(MeshArrays const& operand)
{
    for (std::size_t t = 0; t < operand.triangles.size(); ++t)
        if (ExactSigns::areCollinear(operand.point(t, 0), operand.point(t, 1), operand.point(t, 2)))
            return true;
    return false;
}

MeshArrays prepareTool(MeshKernel const& tool, StageProgress& progress)
{
    MeshArrays arrays = copyArrays(tool, Frame::World, progress);
    requireFinite(arrays, "The tool");
    if (hasFlatTriangle(arrays))
        arrays = withoutFlatTriangles(arrays, progress);
    if (!doesOverlapItself(arrays, progress))
        return arrays;
    Exact::CombinedSolids united = Exact::combine({}, arrays, {.united = true}, progress);
    // A tool that is open somewhere is taken as it is.
    return united.united ? std::move(*united.united) : arrays;
}
