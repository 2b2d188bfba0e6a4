// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorRun.h"
#include "connectors/LapJointParas.h"
#include "connectors/PinHoleParas.h"
#include "connectors/SectionRecord.h"

namespace POLYGON {
class Polygons;
}
class PlaneFrame;

/// What a person must be told of the connectors of one part: those that leave its material, and
/// that they make a piece fall apart. Looks at the uncut part along the connectors' axis.
///
///     ConnectorSurvey const survey(part, frame, remarks);
///     survey.ofPins(paras, positions);
///     Halves const joined = applyPins(...);
///     survey.ofShells(joined);
class ConnectorSurvey
{
public:
    /// part  before its plain halves are given up
    ConnectorSurvey(PartOfRun const& part, PlaneFrame const& frame, CutRemarks& remarks);

    /// Pins that the surface cuts short, holes that open, and faces that cannot meet.
    void ofPins(PinHoleParas const& paras, std::vector<UPoint3<float>> const& positions) const;
    /// The same of a tongue and its notch.
    void ofJoint(LapJointParas const& paras, POLYGON::Polygons const& tongue,
                 POLYGON::Polygons const& notch) const;
    /// Halves that fall into more shells than they do without connectors.
    void ofShells(Halves const& joined) const;

private:
    void add(CutRemark::Kind kind, std::string text, std::vector<UPoint3<float>> places) const;

    Mesh::DocumentObject* m_object;
    MeshKernel const& m_source;
    PlaneFrame const& m_frame;
    CutRemarks& m_remarks;
    std::size_t m_plainLower;
    std::size_t m_plainUpper;
};
