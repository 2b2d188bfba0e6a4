// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/HalfJoining.h"

#include "connectors/PlaneFrame.h"
#include "platform/services/FacePrisms.h"

#include <algorithm>

namespace {

CombiningNotes combine(MeshKernel const& a, MeshKernel const& b, MeshKernel& result,
                       Intersect::BooleanType type, std::function<void(int)> const& stage,
                       ConnectorProgress::Share share)
{
    return combineWithNotes(a, b, result, type, ConnectorProgress::span(stage, share));
}

/// Only asks whether the user has cancelled: the percentages of a span are its booleans'.
std::function<void(int)> asking()
{
    return [poll = ConnectorProgress::poll()](int) { poll(); };
}

/// Prisms of which those that meet nothing but a half's face go into that face, and the others the
/// way of all solids.
class PrismsOfRun
{
public:
    PrismsOfRun(PartOfRun const& part, MeshKernel& prisms)
        : m_all(prisms), m_split(splitPrisms(*part.source, *part.lowerPlane, prisms, asking()))
    {}

    /// Puts the free ones into a half's face.
    /// returns  those that are left
    MeshKernel& combineWith(MeshKernel& half, MeshKernel const& plane, Intersect::BooleanType type)
    {
        if (m_split.free->readMesh()->triangles.empty() ||
            !combineAtFace(half, plane, *m_split.free, type, asking()))
            return m_all;
        return *m_split.other;
    }

private:
    MeshKernel& m_all;
    PrismSplit m_split;
};

bool isEmpty(MeshKernel const& kernel)
{
    return kernel.readMesh()->triangles.empty();
}

/// Tells of the end of a span in which nothing was left to do.
void tellEnd(std::function<void(int)> const& progress, ConnectorProgress::Share share)
{
    if (progress)
        ConnectorProgress::span(progress, share)(100);
}

/// A half on its way to its result, given up on the way.
struct HalfInWork
{
    ShellSurvey::Half which;
    std::shared_ptr<MeshKernel>& half;
    MeshKernel const& plane;
    std::shared_ptr<MeshKernel>& result;
    CombiningNotes& notes;
};

HalfInWork upperOf(PartOfRun& part, Halves& joined)
{
    return {ShellSurvey::upper, part.plain.upper, *part.upperPlane, joined.upper, joined.notes};
}

/// Takes prisms out of a half.
void takeOut(PrismsOfRun& prisms, HalfInWork const& work, ShellSurvey& shells,
             std::function<void(int)> const& progress, ConnectorProgress::Share share)
{
    MeshKernel& left = prisms.combineWith(*work.half, work.plane, Intersect::BOOLEAN_SUBTRACT);
    if (isEmpty(left)) {
        tellEnd(progress, share);
        work.result = std::move(work.half);
        return;
    }
    shells.lookAt(work.which, *work.half);
    append(work.notes,
           combine(*work.half, left, *work.result, Intersect::BOOLEAN_SUBTRACT, progress, share));
    work.half.reset();
}

/// Joins prisms, as far as they lie in the part, to the lower half, which is given up.
void raise(PartOfRun& part, MeshKernel& raised, Halves& joined, ShellSurvey& shells,
           std::function<void(int)> const& progress)
{
    PrismsOfRun prisms(part, raised);
    MeshKernel& left =
        prisms.combineWith(*part.plain.lower, *part.lowerPlane, Intersect::BOOLEAN_UNION);
    if (isEmpty(left)) {
        tellEnd(progress, {0, 40});
        tellEnd(progress, {40, 30});
        joined.lower = std::move(part.plain.lower);
        return;
    }
    shells.lookAt(ShellSurvey::lower, *part.plain.lower);
    MeshKernel clipped;
    combine(*part.source, left, clipped, Intersect::BOOLEAN_INTERSECT, progress, {0, 40});
    append(joined.notes, combine(*part.plain.lower, clipped, *joined.lower,
                                 Intersect::BOOLEAN_UNION, progress, {40, 30}));
    part.plain.lower.reset();
}

}  // namespace

Halves joinRaisedAndHollow(PartOfRun& part, MeshKernel& raised, MeshKernel& hollow,
                           ShellSurvey& shells, std::function<void(int)> const& progress)
{
    Halves joined;
    raise(part, raised, joined, shells, progress);
    PrismsOfRun prisms(part, hollow);
    takeOut(prisms, upperOf(part, joined), shells, progress, {70, 30});
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

Halves takeOutOfBoth(PartOfRun& part, MeshKernel& hollow, ShellSurvey& shells,
                     std::function<void(int)> const& progress)
{
    Halves joined;
    PrismsOfRun prisms(part, hollow);
    takeOut(prisms,
            {ShellSurvey::lower, part.plain.lower, *part.lowerPlane, joined.lower, joined.notes},
            shells, progress, {0, 50});
    takeOut(prisms, upperOf(part, joined), shells, progress, {50, 50});
    return joined;
}
