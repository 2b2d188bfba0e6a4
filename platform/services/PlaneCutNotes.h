// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <functional>
#include <vector>

/// What a plane cut did to a part beyond cutting it, and what it could not mend: a place of each in
/// world millimetres.
struct PlaneCutNotes
{
    /// Triangles that faced the other way than those around them.
    std::vector<UPoint3<float>> turned;
    /// Triangles that lay there once more.
    std::vector<UPoint3<float>> doubled;
    /// Pairs of triangles of a piece that cross for having been rounded.
    std::vector<UPoint3<float>> crossing;
};

/// Does what Intersect::cutByPlane does, and tells about it. What is told is in the log as well.
///
/// section  null if nobody wants it, which saves a good part of a cut with long contours
PlaneCutNotes cutByPlaneWithNotes(MeshKernel const& part, MeshKernel const& plane,
                                  MeshKernel& sideA, MeshKernel& sideB, MeshKernel* section,
                                  std::function<void(int)> const& progress);
