// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/LapJointCutter.h"

#include "connectors/ConnectorSurvey.h"
#include "connectors/HalfJoining.h"
#include "connectors/LapJointOutline.h"
#include "connectors/LapJointSolid.h"
#include "connectors/PolledWork.h"
#include "connectors/SectionPlanes.h"
#include "connectors/ShellSurvey.h"
#include "cutjobs/common/RemarkTexts.h"
#include "cutjobs/common/ServiceCall.h"

LapJointCutter::LapJointCutter(LapJointParas const& paras_, bool checkBoundary_,
                               std::vector<Mesh::DocumentObject*> parts_,
                               Freecut::PlaneGraphicObject* plane_)
    : checkBoundary(checkBoundary_), paras(paras_), parts(std::move(parts_)), plane(plane_)
{}

bool LapJointCutter::execute(std::function<void(int)> progress)
{
    result.clear();
    m_remarks.clear();
    m_sections.clear();
    try {
        result = run(progress);
    } catch (Mell::AbortException const& abort) {
        ServiceCall::leaveOnAbort(abort);
    }
    return true;
}

CutResultMap LapJointCutter::run(std::function<void(int)> const& progress)
{
    SectionPlanes const planes(*plane, parts, checkBoundary);
    MeshKernel base;
    MeshKernel offset;
    planes.calculateOffsetPlaneMesh(base.getMesh().get(), offset.getMesh().get(),
                                    paras.frontClearance);
    ConnectorRun run(RunForm::twoCuts(), parts, base, offset, checkBoundary);
    run.setAtPart(m_atPart);
    return run.run(
        progress, [&](PartOfRun& part) { return connect(part, planes.frame(), base); }, m_remarks);
}

std::optional<Halves> LapJointCutter::connect(PartOfRun& part, PlaneFrame const& frame,
                                              MeshKernel const& basePlane)
{
    std::vector<SectionContour> const contours = extractSectionContours(part.cap.get());
    m_sections[part.object] = {sectionArea(*part.cap), contours.size(), {}};
    if (contours.empty())
        return {};
    std::vector<MeshKernel> tongue, notch;
    POLYGON::Polygons tongueOutline, notchOutline;
    runMeshStage([&] {
        tongue = createNotchMesh(contours, frame, basePlane, true, tongueOutline);
        notch = createNotchMesh(contours, frame, basePlane, false, notchOutline);
    });
    // The notch is the wider one, so it is there whenever the tongue is, unless clipping failed.
    if (tongue.empty() || notch.empty()) {
        m_remarks.push_back(noRoomForJoint(part.object));
        return {};
    }
    Halves joined;
    runMeshStage([&] {
        ConnectorSurvey(part.object, PlacedMesh(*part.source), frame, m_remarks,
                        ConnectorProgress::poll())
            .ofJoint(paras, tongueOutline, notchOutline);
        ShellSurvey shells(part.object, ConnectorProgress::poll());
        sinkFloor(notch.front(), frame, paras.frontClearance);
        joined = applyLapJoint(part, tongue, notch, shells);
        shells.tellOf(joined, m_remarks);
    });
    return joined;
}

std::vector<MeshKernel> LapJointCutter::createNotchMesh(std::vector<SectionContour> const& contours,
                                                        PlaneFrame const& frame,
                                                        MeshKernel const& basePlane, bool tongue,
                                                        POLYGON::Polygons& outline) const
{
    ConnectorProgress::Poll const poll = ConnectorProgress::poll();
    outline = LapJointOutline::polled(paras, frame, basePlane.readMesh(), contours, tongue, poll);
    auto const extruded = [outline, paras = paras, frame, tongue] {
        return notchMesh(outline, paras, frame, tongue);
    };
    std::vector<MeshKernel> solid;
    if (auto mesh = runPolled(extruded, poll))
        solid.emplace_back(mesh.release());
    return solid;
}

Halves LapJointCutter::applyLapJoint(PartOfRun& part, std::vector<MeshKernel>& tongue,
                                     std::vector<MeshKernel>& notch, ShellSurvey& shells) const
{
    constexpr ConnectorProgress::Share stage{40, 60};
    return joinRaisedAndHollow(part, tongue.front(), notch.front(), shells, part.stage(stage));
}
