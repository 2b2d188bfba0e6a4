// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/HalfJoining.h"

#include "connectors/PlaneFrame.h"
#include "cutjobs/common/SolidCombining.h"

#include <algorithm>

namespace {

void combine(MeshKernel& a, MeshKernel& b, MeshKernel& result, Intersect::BooleanType type,
             std::function<void(int)> const& stage, ConnectorProgress::Share share)
{
    combineSolids(a, b, result, type, ConnectorProgress::span(stage, share));
}

}  // namespace

Halves joinRaisedAndHollow(PartOfRun& part, MeshKernel& raised, MeshKernel& hollow,
                           std::function<void(int)> const& progress)
{
    Halves joined;
    MeshKernel clipped;
    combine(*part.source, raised, clipped, Intersect::BOOLEAN_INTERSECT, progress, {0, 40});
    combine(*part.plain.lower, clipped, *joined.lower, Intersect::BOOLEAN_UNION, progress,
            {40, 30});
    part.plain.lower.reset();
    combine(*part.plain.upper, hollow, *joined.upper, Intersect::BOOLEAN_SUBTRACT, progress,
            {70, 30});
    part.plain.upper.reset();
    return joined;
}

void sinkFloor(MeshKernel& hollow, PlaneFrame const& frame, float gap)
{
    if (gap >= connectorOverlapMm)
        return;
    UMesh<float>& mesh = *hollow.getMesh();
    float top = 0;
    for (UVertex<float> const* const vertex : mesh.vertices)
        top = std::max(top, frame.toPlaneLocal(vertex->cP()).Z());
    for (UVertex<float>* const vertex : mesh.vertices)
        if (frame.toPlaneLocal(vertex->cP()).Z() < top / 2)
            vertex->P() += frame.normal() * -connectorOverlapMm;
}

Halves takeOutOfBoth(PartOfRun& part, MeshKernel& hollow, std::function<void(int)> const& progress)
{
    Halves joined;
    combine(*part.plain.lower, hollow, *joined.lower, Intersect::BOOLEAN_SUBTRACT, progress,
            {0, 50});
    part.plain.lower.reset();
    combine(*part.plain.upper, hollow, *joined.upper, Intersect::BOOLEAN_SUBTRACT, progress,
            {50, 50});
    part.plain.upper.reset();
    return joined;
}
