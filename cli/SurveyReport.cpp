// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/SurveyReport.h"

#include "cli/Errors.h"
#include "cli/Numbers.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/jobs/SequencerLauncher.h"

#include <cmath>

namespace {

/// A place with three decimals lies no farther beside a plane.
constexpr double mostBesidePlane = 0.01;

std::string placeText(UPoint3<float> const& p)
{
    return decimal(p.X()) + "," + decimal(p.Y()) + "," + decimal(p.Z());
}

void refuseBesidePlane(ConnectorChoice const& choice, PlaneFrame const& frame)
{
    for (UPoint3<float> const& place : choice.added) {
        UPoint3<float> local = frame.toPlaneLocal(place);
        if (std::abs(local.Z()) <= mostBesidePlane)
            continue;
        double const distance = std::abs(local.Z());
        local[2] = 0;
        throw UsageError("--at " + placeText(place) + " lies " + decimal(float(distance)) +
                         " mm beside the plane; the nearest place in it is " +
                         placeText(frame.fromPlaneLocal(local)) + ".");
    }
}

void refuseUnknown(ConnectorChoice const& choice, std::size_t count)
{
    for (std::size_t const place : choice.leftOutPlaces)
        if (place >= count)
            throw CutError("There is no connector " + std::to_string(place + 1) +
                           " to leave out: the section has " + std::to_string(count) +
                           ". Look at the list of --dry-run.");
}

}  // namespace

SectionSurvey surveyOf(CutPart const& part, Freecut::PlaneGraphicObject const& plane,
                       SectionOptions const& options)
{
    Base::SequencerLauncher display("Measuring the section", 100, true);
    display.setCancelEnabled(true);
    SurveyRequest request{part.object, PlacedMesh(*part.object->meshProperty->getMesh()),
                          SectionPlanes(plane, {part.object}, options.bounded)};
    request.connectors = options.connectors.paras();
    request.choice = options.connectors.choice();
    refuseBesidePlane(request.choice, request.planes.frame());
    SectionSurvey survey = surveySection(request, ConnectorProgress::poll());
    refuseUnknown(request.choice, survey.connectors.size());
    return survey;
}

void enterFacts(CutPart& part, SectionSurvey const& survey, ConnectorOptions const& connectors)
{
    SectionFacts& facts = part.section.emplace();
    facts.area = survey.area;
    facts.contours = survey.contours.size();
    if (connectors.cutType() == SECTIONCUT_PINHOLE) {
        facts.positions = standingPositions(survey.connectors);
        facts.connectors = survey.connectors;
    }
}

void enterRemarks(CutPart& part, SectionSurvey const& survey, ConnectorOptions const& connectors)
{
    for (CutRemark remark : survey.remarks) {
        remark.text += connectors.adviceOn(remark.kind);
        part.remarks.push_back(std::move(remark));
    }
}
