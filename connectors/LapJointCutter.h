// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorRun.h"
#include "connectors/LapJointParas.h"
#include "connectors/SectionContour.h"
#include "connectors/SectionRecord.h"
#include "cutjobs/common/CutResultMap.h"

namespace Freecut {
class PlaneGraphicObject;
}
namespace POLYGON {
class Polygons;
}
class PlaneFrame;
class ShellSurvey;

/// Cuts parts along a plane and shapes the two faces of each as tongue and notch. The lower half,
/// from which the plane's normal points away, gets the tongue. Made for one run.
class LapJointCutter
{
public:
    /// checkBoundary  the plane ends at its drawn corners
    /// plane          borrowed
    LapJointCutter(LapJointParas const& paras, bool checkBoundary,
                   std::vector<Mesh::DocumentObject*> parts, Freecut::PlaneGraphicObject* plane);

    /// Told of each part before its turn, on the thread of the run.
    void setAtPart(std::function<void(Mesh::DocumentObject*)> atPart)
    {
        m_atPart = std::move(atPart);
    }

    /// Runs the cut. A part whose section is too small for a joint is cut plainly.
    ///
    /// progress  a percentage of the run; may be empty
    /// returns   true
    /// throws    Mell::AbortException "Aborting..." on a user's cancel, an empty char const* on any
    ///           other abort, and what the services throw; the result is then empty
    /// thread    any; reads the parts and the plane, which must not change meanwhile
    bool execute(std::function<void(int)> progress);

    /// After execute: the lower half of each part and then its upper half, where they are not
    /// empty.
    CutResultMap& getResult() { return result; }
    /// After execute: what a person must be told of the cut.
    CutRemarks const& remarks() const { return m_remarks; }
    /// After execute: the sections of the parts that the plane meets.
    SectionRecords const& sections() const { return m_sections; }

private:
    CutResultMap run(std::function<void(int)> const& progress);
    std::optional<Halves> connect(PartOfRun& part, PlaneFrame const& frame,
                                  MeshKernel const& basePlane);
    /// The tongue or the notch as one kernel, or none.
    ///
    /// outline  receives its outline
    std::vector<MeshKernel> createNotchMesh(std::vector<SectionContour> const& contours,
                                            PlaneFrame const& frame, MeshKernel const& basePlane,
                                            bool tongue, POLYGON::Polygons& outline) const;
    Halves applyLapJoint(PartOfRun& part, std::vector<MeshKernel>& tongue,
                         std::vector<MeshKernel>& notch, ShellSurvey& shells) const;

    bool checkBoundary;
    LapJointParas paras;
    std::vector<Mesh::DocumentObject*> parts;
    Freecut::PlaneGraphicObject* plane;
    CutResultMap result;
    std::function<void(Mesh::DocumentObject*)> m_atPart;
    CutRemarks m_remarks;
    SectionRecords m_sections;
};
