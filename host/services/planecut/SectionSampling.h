// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/exact/SectionTriangulation.h"
#include "host/services/planecut/SectionPoints.h"

#include <functional>
#include <memory>

/// The faces of a section as a mesh of their own, made for drawing lines through them.
///
/// The corners of a contour alone do not triangulate well: across a square run two triangles whose
/// common edge ends in corners, and nothing tells where the middle is. So points are added on the
/// contours' long edges, at most a quarter of the face's mean width apart, and the face is filled
/// anew between its contours, without a point inside, seen as it is and not along an axis. The mean
/// width is twice the area divided by the length of the contours.
///
/// filling   triangles over the section points, whose contours are those of the mesh
/// progress  a percentage; may throw
/// returns   the mesh, identifiers set; where no edge is long, or where rounding would make
///           contours cross, with the triangles of the filling
/// cost      O(k log k) for k points
std::unique_ptr<UMesh<float>> sectionMesh(SectionPoints const& points,
                                          Exact::SectionFilling const& filling,
                                          CutPlane const& plane,
                                          std::function<void(int)> const& progress);
