// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/ConnectorRun.h"

#include "connectors/FilledSides.h"
#include "cutjobs/common/PartMesh.h"
#include "cutjobs/common/RemarkTexts.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/jobs/Exceptions.h"
#include "platform/services/Intersect.h"
#include "platform/services/PlaneCutNotes.h"

namespace {

FilledSides filledSides(Halves const& halves)
{
    return {!halves.lower->readMesh()->triangles.empty(),
            !halves.upper->readMesh()->triangles.empty()};
}

void cutByPlane(MeshKernel& part, MeshKernel& plane, Halves const& halves, MeshKernel* cap,
                std::function<void(int)> const& stage)
{
    runMeshStage([&] {
        Intersect::cutByPlane(&part, &plane, halves.upper.get(), halves.lower.get(), cap, stage,
                              true);
    });
}

/// Returns whether there is anything on the other side.
bool cutOff(MeshKernel const& part, MeshKernel const& plane, PlaneSide side, MeshKernel& half,
            MeshKernel* cap, std::function<void(int)> const& stage)
{
    bool isOtherFilled = false;
    runMeshStage([&] { isOtherFilled = cutOffByPlane(part, plane, side, half, cap, stage); });
    return isOtherFilled;
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
        for (CutRemark const& remark : remarksOn(halves.notes, part))
            remarks.push_back(remark);
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
        cutByPlane(*copy, m_base, part.plain, part.cap.get(), part.stage({0, span}));
        remarkOnCuts(remarks, object, filledSides(part.plain), filledSides(part.plain), m_bounded);
        return part;
    }
    // Of each cut one half alone is kept.
    bool const isLowerLeft =
        cutOff(*copy, m_offset, PlaneSide::a, *part.plain.upper, nullptr, part.stage({0, span}));
    bool const isUpperLeft = cutOff(*copy, m_base, PlaneSide::b, *part.plain.lower, part.cap.get(),
                                    part.stage({span, span}));
    FilledSides const filled = filledSides(part.plain);
    remarkOnCuts(remarks, object, {filled.lower, isUpperLeft}, {isLowerLeft, filled.upper},
                 m_bounded);
    return part;
}
