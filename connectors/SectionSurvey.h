// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorChoice.h"
#include "connectors/ConnectorProgress.h"
#include "connectors/ConnectorSurvey.h"
#include "connectors/SectionContour.h"
#include "connectors/SectionPlanes.h"
#include "platform/services/POLYGON.h"

#include <variant>

/// The connectors that are asked for: none, pins and holes, or a lap joint.
using ConnectorParas = std::variant<std::monostate, PinHoleParas, LapJointParas>;

/// What a section cut would do to one part: the section, where connectors stand, and what a person
/// must be told of them, found by the code that makes them but without cutting.
///
/// See docs/decisions/0013-connectors-before-the-cut.md.
///
///     SurveyRequest request{part, PlacedMesh(*kernelOfPart(part)), SectionPlanes(...)};
///     request.connectors = paras;
///     SectionSurvey const survey = surveySection(request, ConnectorProgress::poll());
struct SurveyRequest
{
    /// The part, to be named in the remarks; not looked at, so it may go meanwhile.
    Mesh::DocumentObject* object;
    PlacedMesh part;
    /// Of all parts that are to be cut together.
    SectionPlanes planes;
    ConnectorParas connectors = {};
    /// For pins and holes.
    ConnectorChoice choice = {};
    bool wantsCentreLines = false;
};

struct SectionSurvey
{
    using Points = std::vector<UPoint3<float>>;

    Mesh::DocumentObject* object = nullptr;
    /// Square millimetres.
    double area = 0;
    std::vector<SectionContour> contours;
    /// Pins or holes.
    std::vector<ChosenConnector> connectors;
    /// The outlines of a lap joint on the plane's grid; empty if there is none.
    POLYGON::Polygons tongue;
    POLYGON::Polygons notch;
    ConnectorSurvey::JointLeaving leaving;
    /// As asked for; an edge counts as it does for connectors of this size.
    std::vector<Points> centreLines;
    /// What a real run would say, but for pieces that fall apart, which takes a cut to see. Where
    /// the plane is bounded it does not tell what a gap takes either.
    CutRemarks remarks;
};

/// thread  any; reads only what the request owns
/// poll    called often; may be empty; what it throws passes
/// throws  Mell::Exception that says why the part cannot be cut
/// cost    two passes over the part, plus what placing takes; a bounded plane takes a cut of a copy
SectionSurvey surveySection(SurveyRequest const& request, ConnectorProgress::Poll const& poll);
