// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/UMesh.h"
#include "platform/services/POLYGON.h"

#include <memory>

class PlaneFrame;
struct LapJointParas;

/// What buildNotchSolid works on.
struct NotchSolidContext
{
    POLYGON::Polygons const& outline;
    LapJointParas const& paras;
    PlaneFrame const& frame;
    bool tongue;
    /// Filled; whoever owns the lists owns the records.
    std::vector<UVertex<float>*>& vertices;
    std::vector<UTriangle<float>*>& triangles;
};

/// Extrudes an outline along the plane's normal: walls on every ring first, caps after them, part
/// by part of the outline. Floor, top and walls fit edge to edge.
///
/// Vertices go in pairs, first the floor's and then the top's, with running identifiers. The tongue
/// reaches from 0.01 mm below the plane to the notch's depth, so that it overlaps the lower half;
/// the notch from the plane to its depth and the back clearance.
void buildNotchSolid(NotchSolidContext const& context);

/// The solid as a mesh; null if the outline is empty.
std::unique_ptr<UMesh<float>> notchMesh(POLYGON::Polygons const& outline,
                                        LapJointParas const& paras, PlaneFrame const& frame,
                                        bool tongue);
