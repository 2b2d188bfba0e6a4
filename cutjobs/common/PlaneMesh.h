// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UBox3.h"
#include "platform/geometry/UPoint3.h"

#include <array>

template <typename T>
class UMesh;

/// The mesh that stands for a cutting plane: four vertices, and the triangles 0, 1, 2 and 2, 3, 0
/// with their normals stored.
namespace PlaneMesh {

using Corners = std::array<UPoint3<float>, 4>;

/// How far the corners lie from the centre. L is the diagonal of the box extended by the centre.
enum class Reach
{
    /// L along each direction.
    Diagonal,
    /// L divided by the smallest component other than zero of the two directions, so that even
    /// along the axis in which they advance the least the plane spans L. Where the rectangle, which
    /// stands on its corner or is narrow, does not cover the box and the centre all the same, the
    /// stretch is what it takes to cover them. A component that is tiny
    /// but not zero would put the corners where floats lie more than 0.001 mm apart: they then lie
    /// four times as far as it takes to cover the box and the centre.
    DiagonalAlongAxes,
};

/// Corners of a plane that reaches beyond a box.
///
/// box               of all that is to be cut; may be null
/// centre            a point of the plane
/// towards1, 2       points of the plane: they give the two directions from the centre. The plane's
///                   normal is the first direction crossed with the second
Corners span(UBox3<float> const& box, UPoint3<float> const& centre, UPoint3<float> const& towards1,
             UPoint3<float> const& towards2, Reach reach);

/// Fills an empty mesh with the plane.
void fill(UMesh<float>* mesh, Corners const& corners);

}  // namespace PlaneMesh
