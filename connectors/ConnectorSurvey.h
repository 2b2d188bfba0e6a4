// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorProgress.h"
#include "connectors/LapJointParas.h"
#include "connectors/PinHoleParas.h"
#include "connectors/PlacedMesh.h"
#include "cutjobs/common/CutRemark.h"
#include "platform/geometry/UPoint3.h"

#include <string>
#include <utility>
#include <vector>

namespace POLYGON {
class Polygons;
}
namespace Mesh {
class DocumentObject;
}
class PlaneFrame;

/// What a person must be told of the connectors of one part: those that leave its material. Looks at
/// the uncut part along the connectors' axis.
class ConnectorSurvey
{
public:
    using Points = std::vector<UPoint3<float>>;

    /// object   the part, to be named in the remarks; not looked at
    /// source   its mesh, uncut
    /// remarks  takes what is found
    /// poll     called now and then while the part is looked at, which ends with what it throws; may
    ///          be empty
    ConnectorSurvey(Mesh::DocumentObject* object, PlacedMesh source, PlaneFrame const& frame,
                    CutRemarks& remarks, ConnectorProgress::Poll poll = {})
        : m_object(object),
          m_source(std::move(source)),
          m_frame(frame),
          m_remarks(remarks),
          m_poll(std::move(poll))
    {}

    /// Pins that the surface cuts short, holes that open, and faces that cannot meet.
    ///
    /// returns  which of the positions have a pin or hole that leaves the part
    std::vector<bool> ofPins(PinHoleParas const& paras, Points const& positions) const;

    /// Where on their outlines tongue and notch leave the part.
    struct JointLeaving
    {
        Points tongue;
        Points notch;
    };
    /// The same of a tongue and its notch.
    JointLeaving ofJoint(LapJointParas const& paras, POLYGON::Polygons const& tongue,
                         POLYGON::Polygons const& notch) const;

private:
    void add(CutRemark::Kind kind, std::string text, Points places) const;

    Mesh::DocumentObject* m_object;
    PlacedMesh m_source;
    PlaneFrame const& m_frame;
    CutRemarks& m_remarks;
    ConnectorProgress::Poll m_poll;
};
