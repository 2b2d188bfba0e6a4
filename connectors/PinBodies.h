// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/PinHoleParas.h"
#include "platform/geometry/UPoint3.h"
#include "platform/mesh/MeshKernel.h"

#include <vector>

class PlaneFrame;

/// The round solids of pins and holes: one kernel with a cylinder, as a closed shell of its own,
/// for each position.
class PinBodies
{
public:
    PinBodies(PinHoleParas const& paras, PlaneFrame const& frame) : m_paras(paras), m_frame(frame)
    {}

    /// Appends a kernel with holes that reach to both sides of the section plane, for dowels.
    void createHoleBodies(std::vector<UPoint3<float>> positions,
                          std::vector<MeshKernel>& holes) const;

    /// Appends a kernel with pins, which begin 0.01 mm below the plane, and one with the holes that
    /// receive them, which begin at the plane.
    void createPinBodies(std::vector<UPoint3<float>> const& positions,
                         std::vector<MeshKernel>& pins, std::vector<MeshKernel>& holes) const;

    /// Number of facets, 4 to 200, from radius and tolerance. A pin, and the hole that receives it,
    /// has twice as many as a free hole.
    int holeSegments() const;
    int pinSegments() const;

    /// Adds for each position a cylinder from there along the plane's normal. All faces look
    /// outward.
    void appendCylinders(UMesh<float>& mesh, std::vector<UPoint3<float>> const& positions,
                         float length, float radius, int segments) const;

private:
    double chordAngle() const;

    PinHoleParas const& m_paras;
    PlaneFrame const& m_frame;
};
