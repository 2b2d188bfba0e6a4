// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/EdgeGroups.h"
#include "host/services/MeshErrors.h"
#include "host/services/MeshRegion.h"
#include "host/services/OrientationMending.h"
#include "host/services/SoupMending.h"
#include "host/services/exact/SurfaceMending.h"
#include "platform/services/Repair.h"

#include <cassert>

namespace {

using Errors = Repair::EvaluateErrors;

/// A mesh with what is wrong with it.
struct Judged
{
    MeshArrays mesh;
    MeshErrors errors;
};

/// Takes the percentages of one repair from step to step.
class Repairing
{
public:
    explicit Repairing(std::function<void(int)> const& progress) : m_progress(progress) {}

    Judged judge(MeshArrays mesh, int from, int to)
    {
        std::function<void(int)> const scaled =
            m_progress ? [this, from, to](int p) { m_progress(from + p * (to - from) / 100); }
                       : std::function<void(int)>();
        StageProgress stages(scaled);
        MeshErrors errors = findErrors(mesh, Errors::ERROR_ALL, stages, 0);
        return {std::move(mesh), std::move(errors)};
    }

    /// Everything that can be mended without new points.
    MeshArrays mendSurface(MeshArrays mesh, int from, int to)
    {
        StageProgress stages(m_progress);
        int const middle = (from + to) / 2;
        stages.begin(from, middle, mesh.triangles.size());
        removeBrokenTriangles(mesh);
        joinBorders(mesh, stages);
        removeDuplicates(mesh, stages);
        stages.add(mesh.triangles.size() / 2);
        orientConsistently(mesh, stages);
        splitFans(mesh, stages);
        stages.begin(middle, to, 1);
        close(mesh, stages);
        removeFlatShells(mesh, stages);
        return mesh;
    }

    /// Replaces small regions in which shells cross themselves, and closes what that leaves open.
    MeshArrays mendCrossings(Judged const& judged, int from, int to)
    {
        MeshArrays mesh = judged.mesh;
        {
            StageProgress stages(m_progress);
            stages.begin(from, (from + to) / 2, 8);
            constexpr int rings = 12;
            MeshRegion region =
                takeOut(mesh, judged.errors.intersections.isInvolved, rings, stages);
            if (removeLocalCrossings(region, judged.errors.topology.shellOf, stages))
                putBack(mesh, region);
        }
        return mendSurface(std::move(mesh), (from + to) / 2, to);
    }

private:
    /// Removes triangles without area and fills holes, in the surroundings of either.
    static void close(MeshArrays& mesh, StageProgress& stages)
    {
        TopologyReport const topology = checkTopology(mesh, stages);
        if (topology.borderEdges + topology.degenerateTriangles == 0)
            return;
        std::vector<std::uint8_t> isSeed = topology.isDegenerate;
        EdgeGroups const edges(mesh, stages);
        for (std::size_t i = 0; i < edges.size(); ++i)
            if (edges[i].size() == 1)
                isSeed[edges[i][0] / 3] = 1;
        constexpr int rings = 4;
        MeshRegion region = takeOut(mesh, isSeed, rings, stages);
        if (closeSurface(region, stages))
            putBack(mesh, region);
    }

    std::function<void(int)> const& m_progress;
};

/// Turns the shells that face the wrong way. Nothing else depends on that.
void turnShells(Judged& judged)
{
    if (judged.errors.counts.misorientedShells == 0)
        return;
    for (std::size_t t = 0; t < judged.mesh.triangles.size(); ++t)
        if (judged.errors.isMisoriented[judged.errors.topology.shellOf[t]])
            std::swap(judged.mesh.triangles[t][1], judged.mesh.triangles[t][2]);
    judged.errors.isMisoriented.assign(judged.errors.isMisoriented.size(), 0);
    judged.errors.counts.misorientedShells = 0;
}

/// Tells as mended what there is less of.
void addDifference(Errors::Counts const& before, Errors::Counts const& after,
                   Repair::Report& report)
{
    using Count = std::size_t Errors::Counts::*;
    constexpr std::pair<Repair::Flaw, Count> counts[] = {
        {Repair::Flaw::degenerateTriangle, &Errors::Counts::degenerateTriangles},
        {Repair::Flaw::duplicateTriangle, &Errors::Counts::duplicateTriangles},
        {Repair::Flaw::crossing, &Errors::Counts::selfIntersections},
        {Repair::Flaw::turnedShell, &Errors::Counts::misorientedShells},
    };
    for (auto const& [flaw, count] : counts)
        if (before.*count > after.*count)
            report.mended.push_back({flaw, before.*count - after.*count, {}, {}});
}

void replaceMesh(MeshKernel& kernel, MeshArrays mesh)
{
    removeUnusedPoints(mesh);
    std::unique_ptr<UMesh<float>> const made = makeMesh(mesh);
    UMesh<float>& target = *kernel.getMesh();
    target.triangles.swap(made->triangles);
    target.vertices.swap(made->vertices);
    std::swap(target.triangleCount, made->triangleCount);
    std::swap(target.vertexCount, made->vertexCount);
    kernel.UpdateBoundingBox();
}

}  // namespace

namespace Repair {

RepairMethods::RepairMethods(MeshKernel* kernel, Scope scope) : m_kernel(kernel), m_scope(scope)
{
    assert(kernel);
}

bool RepairMethods::autoRepair_simple_advanced(std::function<void(int)> progress)
{
    m_report = {};
    if (!m_scope.isWhole())
        return EvaluateErrors(m_kernel).evaluate(EvaluateErrors::ERROR_ALL, true, true, progress) ==
               0;
    Repairing repairing(progress);
    StageProgress stages(progress);
    stages.begin(0, 2, m_kernel->readMesh() ? m_kernel->readMesh()->triangles.size() : 0);
    MeshArrays original = copyArrays(*m_kernel, Frame::Local, stages);
    Judged const before = repairing.judge(std::move(original), 2, 15);
    std::size_t const errorsBefore = before.errors.counts.total();
    if (errorsBefore == 0) {
        stages.begin(100, 100, 1);
        return true;
    }
    Judged best = repairing.judge(repairing.mendSurface(before.mesh, 15, 40), 40, 50);
    turnShells(best);
    if (best.errors.counts.selfIntersections > 0) {
        Judged further = repairing.judge(repairing.mendCrossings(best, 50, 85), 85, 95);
        turnShells(further);
        if (further.errors.counts.total() < best.errors.counts.total())
            best = std::move(further);
    }
    stages.begin(95, 100, 1);
    std::size_t const errorsLeft = best.errors.counts.total();
    // A mesh without triangles has no errors either, but is no repair.
    if (errorsLeft < errorsBefore && !best.mesh.triangles.empty()) {
        addDifference(before.errors.counts, best.errors.counts, m_report);
        replaceMesh(*m_kernel, std::move(best.mesh));
    }
    stages.finish();
    return errorsLeft == 0;
}

}  // namespace Repair
