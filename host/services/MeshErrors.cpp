// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/MeshErrors.h"

#include "host/services/ShellNesting.h"

#include <algorithm>

namespace {

using Errors = Repair::EvaluateErrors;

void countTopology(TopologyReport const& topology, unsigned kinds, Errors::Counts& counts)
{
    if (kinds & Errors::ERROR_EDGES) {
        counts.borderEdges = topology.borderEdges;
        counts.nonManifoldEdges = topology.nonManifoldEdges;
    }
    if (kinds & Errors::ERROR_TRIANGLES) {
        counts.inconsistentEdges = topology.inconsistentEdges;
        counts.degenerateTriangles = topology.degenerateTriangles;
        counts.duplicateTriangles = topology.duplicateTriangles;
    }
}

bool haveSeveral(std::vector<double> const& volumes)
{
    return std::count_if(volumes.begin(), volumes.end(), [](double v) { return v != 0; }) > 1;
}

/// Shells at an even depth face outward, the others inward.
void judgeShells(std::vector<double> const& volumes, std::vector<std::uint32_t> const& depths,
                 MeshErrors& errors)
{
    errors.isMisoriented.resize(volumes.size());
    for (std::size_t shell = 0; shell < volumes.size(); ++shell) {
        bool const isCavity = depths[shell] % 2 == 1;
        bool const isWrong = isCavity ? volumes[shell] > 0 : volumes[shell] < 0;
        errors.isMisoriented[shell] = isWrong;
        errors.counts.misorientedShells += isWrong;
    }
}

}  // namespace

MeshErrors findErrors(MeshArrays const& mesh, unsigned kinds, StageProgress& progress, int from)
{
    auto const percent = [from](int share) { return from + share * (100 - from) / 100; };
    MeshErrors errors;
    progress.begin(percent(0), percent(35), mesh.points.size());
    errors.topology = checkTopology(mesh, progress);
    countTopology(errors.topology, kinds, errors.counts);

    std::vector<double> volumes;
    if (kinds & Errors::ERROR_TRIANGLES)
        volumes = shellVolumes(mesh, errors.topology);
    bool const mayNest = haveSeveral(volumes);
    std::vector<std::uint32_t> depths(volumes.size(), 0);
    if (mayNest || kinds & Errors::ERROR_INTERSECTIONS) {
        progress.begin(percent(35), percent(50), 1);
        errors.tree = std::make_shared<TriangleTree const>(mesh, errors.topology, progress);
        progress.begin(percent(50), percent(95), 1);
        errors.intersections = findIntersections(mesh, errors.topology, *errors.tree, progress);
        progress.begin(percent(95), percent(100), volumes.size());
        if (mayNest)
            depths = shellDepths(mesh, errors.topology, *errors.tree, volumes,
                                 errors.intersections.shells, progress);
    }
    if (kinds & Errors::ERROR_INTERSECTIONS)
        errors.counts.selfIntersections = errors.intersections.pairs;
    judgeShells(volumes, depths, errors);
    progress.finish();
    return errors;
}
