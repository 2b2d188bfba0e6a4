// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/PinHoleCutter.h"

#include "connectors/ConnectorSurvey.h"
#include "connectors/HalfJoining.h"
#include "connectors/PinBodies.h"
#include "connectors/PinPlacement.h"
#include "connectors/SectionPlanes.h"
#include "connectors/ShellSurvey.h"
#include "cutjobs/common/RemarkTexts.h"
#include "cutjobs/common/ServiceCall.h"

namespace {

constexpr int holesEnd = 100;
/// The stage of the pins ends short of the part's end.
constexpr int pinsEnd = 90;

}  // namespace

PinHoleCutter::PinHoleCutter(PinHoleParas const& paras_, bool checkBoundary_,
                             std::vector<Mesh::DocumentObject*> parts_,
                             Freecut::PlaneGraphicObject* plane_)
    : paras(paras_), checkBoundary(checkBoundary_), parts(std::move(parts_)), plane(plane_)
{}

bool PinHoleCutter::execute(std::function<void(int)> progress)
{
    result.clear();
    m_remarks.clear();
    m_sections.clear();
    try {
        result = run(paras.faceclearance != 0 ? RunForm::twoCuts() : RunForm::oneCut(), progress);
    } catch (Mell::AbortException const& abort) {
        ServiceCall::leaveOnAbort(abort);
    }
    return true;
}

CutResultMap PinHoleCutter::run(RunForm const& form, std::function<void(int)> const& progress)
{
    SectionPlanes const planes(*plane, parts, checkBoundary);
    MeshKernel base;
    MeshKernel offset;
    if (form.hasTwoCuts)
        planes.calculateOffsetPlaneMesh(base.getMesh().get(), offset.getMesh().get(),
                                        paras.faceclearance);
    else
        planes.calculateCutPlaneMesh(base.getMesh().get());
    ConnectorRun run(form, parts, base, offset, checkBoundary);
    run.setAtPart(m_atPart);
    return run.run(
        progress, [&](PartOfRun& part) { return connect(part, form, planes.frame()); }, m_remarks);
}

std::optional<Halves> PinHoleCutter::connect(PartOfRun& part, RunForm const& form,
                                             PlaneFrame const& frame)
{
    std::vector<SectionContour> const contours = extractSectionContours(part.cap.get());
    m_sections[part.object] = {sectionArea(*part.cap), contours.size(), {}};
    if (contours.empty())
        return {};
    auto const given = m_given.find(part.object);
    bool const isGiven = given != m_given.end();
    std::vector<UPoint3<float>> const positions =
        isGiven ? given->second : placed(part, contours, frame);
    m_sections[part.object].positions = positions;
    if (positions.empty()) {
        if (!isGiven)
            m_remarks.push_back(noRoomForPins(part.object));
        return {};
    }
    if (isGiven)
        refuseOverlaps(positions, paras);
    Halves joined;
    runMeshStage([&] {
        ConnectorSurvey(part.object, PlacedMesh(*part.source), frame, m_remarks,
                        ConnectorProgress::poll())
            .ofPins(paras, positions);
        ShellSurvey shells(part.object, ConnectorProgress::poll());
        joined = paras.isPin ? applyPins(part, form, frame, positions, shells)
                             : applyHoles(part, form, frame, positions, shells);
        shells.tellOf(joined, m_remarks);
    });
    return joined;
}

std::vector<UPoint3<float>> PinHoleCutter::placed(PartOfRun& part,
                                                  std::vector<SectionContour> const& contours,
                                                  PlaneFrame const& frame) const
{
    std::vector<UPoint3<float>> positions;
    runMeshStage([&] {
        positions = PinPlacement(paras, frame, ConnectorProgress::poll())
                        .computePositions(contours, part.cap.get());
    });
    return positions;
}

Halves PinHoleCutter::applyPins(PartOfRun& part, RunForm const& form, PlaneFrame const& frame,
                                std::vector<UPoint3<float>> const& positions,
                                ShellSurvey& shells) const
{
    std::vector<MeshKernel> pins;
    std::vector<MeshKernel> holes;
    PinBodies(paras, frame).createPinBodies(positions, pins, holes);
    sinkFloor(holes.front(), frame, paras.faceclearance);
    return joinRaisedAndHollow(part, pins.front(), holes.front(), shells,
                               part.stage({form.connectorStart, pinsEnd - form.connectorStart}));
}

Halves PinHoleCutter::applyHoles(PartOfRun& part, RunForm const& form, PlaneFrame const& frame,
                                 std::vector<UPoint3<float>> const& positions,
                                 ShellSurvey& shells) const
{
    std::vector<MeshKernel> holes;
    PinBodies(paras, frame).createHoleBodies(positions, holes);
    return takeOutOfBoth(part, holes.front(), shells,
                         part.stage({form.connectorStart, holesEnd - form.connectorStart}));
}
