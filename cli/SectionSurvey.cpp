// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/SectionSurvey.h"

#include "connectors/LapJointOutline.h"
#include "connectors/PinPlacement.h"
#include "connectors/SectionPlanes.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/jobs/SequencerLauncher.h"
#include "platform/services/Intersect.h"

#include <functional>
#include <memory>

namespace {

/// The faces that a plane cuts in a part.
std::unique_ptr<MeshKernel> sectionOf(MeshKernel const& part, MeshKernel& plane,
                                      std::function<void(int)> const& progress)
{
    MeshKernel copy(part);
    MeshKernel sideA, sideB;
    auto section = std::make_unique<MeshKernel>();
    Intersect::cutByPlane(&copy, &plane, &sideA, &sideB, section.get(), progress, true);
    return section;
}

/// Measures the sections of one cut.
class SectionSurvey
{
public:
    SectionSurvey(SectionPlanes const& planes, ConnectorOptions const& connectors)
        : m_frame(planes.frame()), m_connectors(connectors)
    {
        planes.calculateCutPlaneMesh(m_plane.getMesh().get());
    }

    void survey(CutPart& part)
    {
        Base::SequencerLauncher display("Measuring the section", 100, true);
        display.setCancelEnabled(true);
        std::function<void(int)> const progress = [&](int percent) {
            display.setProgress(std::uint64_t(percent));
        };
        auto const section = sectionOf(*part.object->meshProperty->getMesh(), m_plane, progress);
        SectionFacts& facts = part.section.emplace();
        facts.area = measureMesh(*section).area;
        auto const contours = extractSectionContours(section.get());
        facts.contours = contours.size();
        if (m_connectors.cutType() == SECTIONCUT_PINHOLE)
            placePins(part, contours, *section);
        if (m_connectors.cutType() == SECTIONCUT_LAPJOINT)
            placeJoint(part, contours);
    }

private:
    void placePins(CutPart& part, std::vector<SectionContour> const& contours,
                   MeshKernel& section) const
    {
        SectionFacts& facts = *part.section;
        facts.positions.emplace();
        if (contours.empty())
            return;
        PinHoleParas const paras = m_connectors.pinHoleParas();
        facts.positions = PinPlacement(paras, m_frame, ConnectorProgress::poll())
                              .computePositions(contours, &section);
        if (facts.positions->empty())
            part.remarks.push_back(
                {part.object,
                 CutRemark::Kind::NoRoomForConnectors,
                 "The section has no room for a connector, so its halves are plain. Choose a "
                 "smaller radius or clearance.",
                 {}});
    }

    void placeJoint(CutPart& part, std::vector<SectionContour> const& contours) const
    {
        if (contours.empty())
            return;
        LapJointParas const paras = m_connectors.lapJointParas();
        if (LapJointOutline::polled(paras, m_frame, m_plane.readMesh(), contours, true,
                                    ConnectorProgress::poll())
                .size() == 0)
            part.remarks.push_back(
                {part.object,
                 CutRemark::Kind::NoRoomForConnectors,
                 "The section has no room for a lap joint, so its halves are plain. Choose a "
                 "smaller side distance or other contours.",
                 {}});
    }

    PlaneFrame const& m_frame;
    ConnectorOptions const& m_connectors;
    MeshKernel m_plane;
};

}  // namespace

void surveySection(CutPart& part, Freecut::PlaneGraphicObject const& plane,
                   SectionOptions const& options)
{
    SectionPlanes const planes(plane, {part.object}, options.bounded);
    SectionSurvey(planes, options.connectors).survey(part);
}
