// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorProgress.h"
#include "connectors/LapJointParas.h"
#include "connectors/SectionContour.h"
#include "platform/services/POLYGON.h"

#include <memory>

class PlaneFrame;
template <typename T>
class UMesh;

/// The outline of a lap joint's tongue or notch, on the plane's grid.
class LapJointOutline
{
public:
    /// basePlane  the mesh of the cutting plane; where the joint follows inner contours alone, the
    ///            outline reaches to its corners
    LapJointOutline(LapJointParas const& paras, PlaneFrame const& frame,
                    UMesh<float> const& basePlane)
        : m_paras(paras), m_frame(frame), m_basePlane(basePlane)
    {}

    /// contours  outer ones clockwise and those of holes anticlockwise, seen from the tip of N
    /// tongue    or else the notch, which is wider by the clearance on each side
    /// returns   empty if no contour counts or nothing is left after the inset
    POLYGON::Polygons of(std::vector<SectionContour> const& contours, bool tongue) const;

    /// The same, with a poll while contours are moved, which cannot be interrupted.
    ///
    /// throws  what the poll throws
    static POLYGON::Polygons polled(LapJointParas const& paras, PlaneFrame const& frame,
                                    std::shared_ptr<UMesh<float> const> basePlane,
                                    std::vector<SectionContour> const& contours, bool tongue,
                                    ConnectorProgress::Poll const& poll);

    /// How far the tongue's or notch's outline lies outside the outer contours (below zero:
    /// inside), in grid units; never zero for a notch as wide as the contour.
    int insetOfOuter(bool tongue) const;
    /// How far it lies outside the contour of a hole, in grid units.
    int growthOfHole(bool tongue) const;

private:
    std::vector<ClipperLib::Path> keptPaths(std::vector<SectionContour> const& contours) const;
    POLYGON::Polygons aroundHoles(POLYGON::Polygons& holes, bool tongue) const;

    LapJointParas const& m_paras;
    PlaneFrame const& m_frame;
    UMesh<float> const& m_basePlane;
};
