// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorPositions.h"
#include "connectors/ConnectorRun.h"
#include "connectors/PinHoleParas.h"
#include "connectors/SectionContour.h"
#include "connectors/SectionRecord.h"
#include "cutjobs/common/CutResultMap.h"
#include "platform/geometry/UPoint3.h"

namespace Freecut {
class PlaneGraphicObject;
}
class PlaneFrame;
class ShellSurvey;

/// Cuts parts along a plane and puts pins and holes into the two faces of each: pins on the lower
/// half, from which the plane's normal points away, and holes in the upper one, or holes in both.
/// Made for one run.
class PinHoleCutter
{
public:
    /// checkBoundary  the plane ends at its drawn corners
    /// plane          borrowed
    PinHoleCutter(PinHoleParas const& paras, bool checkBoundary,
                  std::vector<Mesh::DocumentObject*> parts, Freecut::PlaneGraphicObject* plane);

    /// The connectors of these parts stand where the lists say, instead of where the cutter would put
    /// them; a part with an empty list gets none. Two on one part must not overlap.
    void setPositions(ConnectorPositions positions) { m_given = std::move(positions); }

    /// Told of each part before its turn, on the thread of the run.
    void setAtPart(std::function<void(Mesh::DocumentObject*)> atPart)
    {
        m_atPart = std::move(atPart);
    }

    /// Runs the cut. A part whose section has no room for a connector is cut plainly.
    ///
    /// progress  a percentage of the run; may be empty
    /// returns   true
    /// throws    as LapJointCutter::execute; Mell::Exception for given positions that overlap
    /// thread    any; reads the parts and the plane, which must not change meanwhile
    bool execute(std::function<void(int)> progress);

    /// After execute: the halves of each part that are not empty, the lower one first. Only where
    /// one cut made both and no connector fits comes the upper one first.
    CutResultMap& getResult() { return result; }
    /// After execute: what a person must be told of the cut.
    CutRemarks const& remarks() const { return m_remarks; }
    /// After execute: the sections of the parts that the plane meets.
    SectionRecords const& sections() const { return m_sections; }

private:
    CutResultMap run(RunForm const& form, std::function<void(int)> const& progress);
    std::optional<Halves> connect(PartOfRun& part, RunForm const& form, PlaneFrame const& frame);
    /// Where the section has room for connectors.
    std::vector<UPoint3<float>> placed(PartOfRun& part, std::vector<SectionContour> const& contours,
                                       PlaneFrame const& frame) const;
    Halves applyPins(PartOfRun& part, RunForm const& form, PlaneFrame const& frame,
                     std::vector<UPoint3<float>> const& positions, ShellSurvey& shells) const;
    Halves applyHoles(PartOfRun& part, RunForm const& form, PlaneFrame const& frame,
                      std::vector<UPoint3<float>> const& positions, ShellSurvey& shells) const;

    PinHoleParas paras;
    bool checkBoundary;
    std::vector<Mesh::DocumentObject*> parts;
    Freecut::PlaneGraphicObject* plane;
    CutResultMap result;
    std::function<void(Mesh::DocumentObject*)> m_atPart;
    CutRemarks m_remarks;
    SectionRecords m_sections;
    ConnectorPositions m_given;
};
