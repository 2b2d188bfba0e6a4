// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/SectionSurvey.h"

#include "connectors/CentreLines.h"
#include "connectors/ContourDistance.h"
#include "connectors/FilledSides.h"
#include "connectors/LapJointOutline.h"
#include "connectors/PinPlacement.h"
#include "connectors/PlaneRibbon.h"
#include "connectors/SectionRecord.h"
#include "cutjobs/common/RemarkTexts.h"
#include "platform/services/Intersect.h"

namespace {

using Poll = ConnectorProgress::Poll;

/// The gap between the faces; none if one cut makes both.
float gapOf(ConnectorParas const& connectors)
{
    if (auto const* const pins = std::get_if<PinHoleParas>(&connectors))
        return pins->faceclearance;
    auto const* const joint = std::get_if<LapJointParas>(&connectors);
    return joint ? joint->frontClearance : 0;
}

class Surveyor
{
public:
    Surveyor(SurveyRequest const& request, Poll const& poll) : m_request(request), m_poll(poll)
    {
        m_survey.object = request.object;
        request.planes.calculateCutPlaneMesh(m_plane.getMesh().get());
    }

    SectionSurvey run()
    {
        if (m_request.part.mesh->triangles.empty())
            return std::move(m_survey);
        PlaneRibbon const ribbon = PlaneRibbon::of(m_request.part, m_plane, m_poll);
        bool const isBounded = m_request.planes.isBounded();
        isBounded && !isWithinPlane(*ribbon.triangles) ? cutCopy() : cutRibbon(ribbon);
        m_survey.area = sectionArea(m_cap);
        m_survey.contours = extractSectionContours(&m_cap);
        if (m_survey.contours.empty())
            return std::move(m_survey);
        if (auto const* const pins = std::get_if<PinHoleParas>(&m_request.connectors))
            placePins(*pins);
        if (auto const* const joint = std::get_if<LapJointParas>(&m_request.connectors))
            placeJoint(*joint);
        return std::move(m_survey);
    }

private:
    void cut(MeshKernel& part, MeshKernel& upper, MeshKernel& lower)
    {
        std::function<void(int)> progress;
        if (m_poll)
            progress = [this](int) { m_poll(); };
        Intersect::cutByPlane(&part, &m_plane, &upper, &lower, &m_cap, progress, true);
    }

    /// Whether the plane's rectangle surely covers the whole section.
    bool isWithinPlane(MeshKernel const& ribbon) const
    {
        auto const& frame = m_request.planes.frame();
        UBox3<float> rectangle, covered;
        for (UVertex<float> const* const corner : m_plane.readMesh()->vertices)
            rectangle.Add(frame.toPlaneLocal(corner->cP()));
        for (UVertex<float> const* const vertex : ribbon.readMesh()->vertices)
            covered.Add(frame.toPlaneLocal(m_request.part.placed(vertex->cP())));
        return covered.min.X() > rectangle.min.X() && covered.max.X() < rectangle.max.X() &&
               covered.min.Y() > rectangle.min.Y() && covered.max.Y() < rectangle.max.Y();
    }

    void cutRibbon(PlaneRibbon const& ribbon)
    {
        MeshKernel upper, lower;
        cut(*ribbon.triangles, upper, lower);
        bool const isCut = !m_cap.readMesh()->triangles.empty();
        bool const isAbove = ribbon.highest > -ribbon.lowest;
        FilledSides const atBase{isCut || !isAbove, isCut || isAbove};
        float const gap = gapOf(m_request.connectors);
        FilledSides const atOffset =
            gap > 0 ? FilledSides{ribbon.lowest<gap, ribbon.highest> gap} : atBase;
        remarkOnCuts(m_survey.remarks, m_request.object, atBase, atOffset,
                     m_request.planes.isBounded());
    }

    /// Which faces a bounded plane cuts depends on the whole part.
    void cutCopy()
    {
        auto const copy = m_request.part.copyOf(m_request.part.mesh->triangles);
        MeshKernel upper, lower;
        cut(*copy, upper, lower);
        if (m_cap.readMesh()->triangles.empty())
            m_survey.remarks.push_back(planeMisses(m_request.object, true));
    }

    void placePins(PinHoleParas const& paras)
    {
        auto const& frame = m_request.planes.frame();
        m_survey.connectors = connectorsOf(
            PinPlacement(paras, frame, m_poll).computePositions(m_survey.contours, &m_cap),
            m_request.choice, paras, frame);
        auto const standing = standingPositions(m_survey.connectors);
        if (m_survey.connectors.empty())
            m_survey.remarks.push_back(noRoomForPins(m_request.object));
        if (!standing.empty()) {
            std::vector<bool> const leaves = survey().ofPins(paras, standing);
            std::size_t next = 0;
            for (ChosenConnector& connector : m_survey.connectors)
                connector.leavesPart = connector.stands() && leaves[next++];
        }
        if (m_request.wantsCentreLines)
            m_survey.centreLines =
                extractCentreLines(*m_cap.getMesh(), ContourDistance(m_survey.contours),
                                   paras.sideclearance + paras.radius, m_poll);
    }

    void placeJoint(LapJointParas const& paras)
    {
        auto const& frame = m_request.planes.frame();
        auto const outline = [&](bool isTongue) {
            return LapJointOutline::polled(paras, frame, m_plane.readMesh(), m_survey.contours,
                                           isTongue, m_poll);
        };
        m_survey.tongue = outline(true);
        m_survey.notch = outline(false);
        if (m_survey.tongue.size() == 0 || m_survey.notch.size() == 0)
            m_survey.remarks.push_back(noRoomForJoint(m_request.object));
        else
            m_survey.leaving = survey().ofJoint(paras, m_survey.tongue, m_survey.notch);
    }

    ConnectorSurvey survey()
    {
        return {m_request.object, m_request.part, m_request.planes.frame(), m_survey.remarks};
    }

    SurveyRequest const& m_request;
    Poll const& m_poll;
    MeshKernel m_plane;
    MeshKernel m_cap;
    SectionSurvey m_survey;
};

}  // namespace

SectionSurvey surveySection(SurveyRequest const& request, Poll const& poll)
{
    return Surveyor(request, poll).run();
}
