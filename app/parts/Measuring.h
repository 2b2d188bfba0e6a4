// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"
#include "platform/mesh/MeshKernel.h"

#include <optional>
#include <stop_token>

/// What can be measured at places on the surfaces of parts, in world millimetres and degrees.
namespace Measuring {

struct SurfacePoint
{
    UPoint3<double> point;
    /// Unit length, out of the part; of no length on a triangle without area.
    UVector3<double> normal;
};

struct Between
{
    double distance = 0;
    /// From the first to the second.
    UVector3<double> offset;
    /// Between the planes of the two faces, 0 to 90; none without both normals.
    std::optional<double> angle;
    /// Of the planes of parallel faces.
    std::optional<double> betweenFaces;
};

Between between(SurfacePoint const& a, SurfacePoint const& b);

/// The unit normal of a triangle as the part is placed, out of it.
UVector3<double> outwardNormal(UMatrix4<float> const& placement, UTriangle<float> const& triangle);

/// How far it is from a point on a part's surface, straight into the part, to where the surface is
/// left again; none where it is not, as the part is open there.
///
/// unwanted  gives the pass up, with what has been found until then
/// cost      one pass over the triangles
std::optional<double> wallThickness(MeshKernel const& part, SurfacePoint const& at,
                                    std::stop_token const& unwanted = {});

}  // namespace Measuring
