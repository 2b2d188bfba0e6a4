// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/ConnectorRun.h"

#include "connectors/FilledSides.h"
#include "cutjobs/common/PartMesh.h"
#include "cutjobs/common/RemarkTexts.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/jobs/Exceptions.h"
#include "platform/services/PlaneCutNotes.h"

namespace {

FilledSides filledSides(Halves const& halves)
{
    return {!halves.lower->readMesh()->triangles.empty(),
            !halves.upper->readMesh()->triangles.empty()};
}

PlaneCutNotes cutByPlane(MeshKernel const& part, MeshKernel const& plane, Halves const& halves,
                         MeshKernel* cap, std::function<void(int)> const& stage)
{
    PlaneCutNotes notes;
    runMeshStage([&] {
        notes = cutByPlaneWithNotes(part, plane, *halves.upper, *halves.lower, cap, stage);
    });
    return notes;
}

CutOffNotes cutOff(MeshKernel const& part, MeshKernel const& plane, PlaneSide side,
                   MeshKernel& half, MeshKernel* cap, std::function<void(int)> const& stage)
{
    CutOffNotes notes;
    runMeshStage([&] { notes = cutOffByPlane(part, plane, side, half, cap, stage); });
    return notes;
}

void tell(CutRemarks& remarks, CutRemarks const& more)
{
    remarks.insert(remarks.end(), more.begin(), more.end());
}

}  // namespace

void runMeshStage(std::function<void()> const& stage)
{
    try {
        stage();
    } catch (Mell::AbortException const&) {
        Base::ConsoleSingleton::Instance().Log("Command Abort.");
        throw Mell::AbortException("Aborting...");
    }
}

CutResultMap ConnectorRun::run(std::function<void(int)> const& progress, Connect const& connect,
                               CutRemarks& remarks) const
{
    CutResultMap result;
    if (m_form.reportsStart && progress)
        progress(0);
    for (int i = 0; i < int(m_parts.size()); ++i) {
        Mesh::DocumentObject* const part = m_parts[std::size_t(i)];
        MeshKernel* const source = kernelOfPart(part);
        if (!source)
            continue;
        if (m_atPart)
            m_atPart(part);
        PartOfRun current = cut(i, part, source, progress, remarks);
        std::optional<Halves> const connected = connect(current);
        Halves const& halves = connected ? *connected : current.plain;
        tell(remarks, remarksOn(halves.notes, part));
        bool const isUpperFirst = !connected && m_form.plainUpperFirst;
        storePiece(result, part, isUpperFirst ? halves.upper : halves.lower);
        storePiece(result, part, isUpperFirst ? halves.lower : halves.upper);
    }
    if (progress)
        progress(100);
    return result;
}

PartOfRun ConnectorRun::cut(int index, Mesh::DocumentObject* object, MeshKernel* source,
                            std::function<void(int)> const& progress, CutRemarks& remarks) const
{
    PartOfRun part;
    part.index = index;
    part.object = object;
    part.source = source;
    part.lowerPlane = &m_base;
    part.upperPlane = m_form.hasTwoCuts ? &m_offset : &m_base;
    part.cap = std::make_shared<MeshKernel>();
    part.stage = [progress, index, count = int(m_parts.size())](ConnectorProgress::Share share) {
        return ConnectorProgress::stage(progress, share, index, count);
    };
    auto const copy = std::make_shared<MeshKernel>(static_cast<MeshKernel const*>(source));
    int const span = m_form.cutSpan;
    if (!m_form.hasTwoCuts) {
        PlaneCutNotes const notes =
            cutByPlane(*copy, m_base, part.plain, part.cap.get(), part.stage({0, span}));
        remarkOnCuts(remarks, object, filledSides(part.plain), filledSides(part.plain), m_bounded);
        tell(remarks, remarksOn(notes, object));
        return part;
    }
    // Of each cut one half alone is kept.
    CutOffNotes const offset =
        cutOff(*copy, m_offset, PlaneSide::a, *part.plain.upper, nullptr, part.stage({0, span}));
    CutOffNotes const base = cutOff(*copy, m_base, PlaneSide::b, *part.plain.lower, part.cap.get(),
                                    part.stage({span, span}));
    FilledSides const filled = filledSides(part.plain);
    remarkOnCuts(remarks, object, {filled.lower, base.isOtherFilled},
                 {offset.isOtherFilled, filled.upper}, m_bounded);
    PlaneCutNotes notes = offset.ofCut;
    append(notes, base.ofCut);
    tell(remarks, remarksOn(notes, object));
    return part;
}
