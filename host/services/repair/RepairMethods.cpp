// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/MeshMaking.h"
#include "host/services/repair/CrossingMending.h"
#include "host/services/repair/RepairNotes.h"
#include "host/services/repair/SoupMending.h"
#include "host/services/repair/TriangleDifference.h"
#include "host/services/repair/WholeRepair.h"
#include "platform/services/Repair.h"

#include <algorithm>
#include <cassert>

namespace {

void replaceMesh(MeshKernel& kernel, UMesh<float>& made)
{
    UMesh<float>& target = *kernel.getMesh();
    target.triangles.swap(made.triangles);
    target.vertices.swap(made.vertices);
    std::swap(target.triangleCount, made.triangleCount);
    std::swap(target.vertexCount, made.vertexCount);
    kernel.UpdateBoundingBox();
}

/// Steps may be repeated; the percentages do not show it.
std::function<void(int)> withoutSteppingBack(std::function<void(int)> const& progress)
{
    if (!progress)
        return {};
    return [&progress, highest = 0](int percent) mutable {
        highest = std::max(highest, percent);
        progress(highest);
    };
}

/// Resolves the crossings of what a cut has made. A cut makes no other flaws.
bool repairWhatWasMade(MeshArrays& mesh, MeshKernel const& piece, MeshKernel const& part,
                       Repair::Report& report, StageProgress& stages)
{
    auto made = trianglesNotIn(copyArrays(piece, Frame::World, stages),
                               copyArrays(part, Frame::World, stages), Facing::either, stages);
    stages.begin(10, 90, 1);
    return mendCrossings(mesh, std::move(made), report, stages);
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
    std::function<void(int)> const rising = withoutSteppingBack(progress);
    StageProgress stages(rising);
    stages.begin(0, 5, m_kernel->readMesh() ? m_kernel->readMesh()->triangles.size() : 0);
    MeshArrays mesh = copyArrays(*m_kernel, Frame::Local, stages);
    bool isSound = false;
    bool hasChanged = false;
    if (m_scope.isWhole()) {
        WholeRepair repair(std::move(mesh), m_report, rising);
        hasChanged = repair.run();
        isSound = repair.isSound();
        mesh = repair.takeMesh();
    } else {
        hasChanged = repairWhatWasMade(mesh, *m_kernel, *m_scope.part(), m_report, stages);
        isSound = m_report.left.empty();
    }
    stages.begin(95, 100, 1);
    std::unique_ptr<UMesh<float>> made;
    if (hasChanged) {
        removeUnusedPoints(mesh);
        made = makeMesh(mesh, stages);
    }
    // The last moment for a cancel; it must not find the mesh changed.
    stages.finish();
    if (made)
        replaceMesh(*m_kernel, *made);
    return isSound;
}

}  // namespace Repair
