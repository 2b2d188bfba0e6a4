// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/exact/SectionTriangulation.h"
#include "host/services/planecut/SectionPoints.h"

#include <vector>

/// Takes out of the contours what bounds nothing, where the plane meets edges of more than two
/// triangles: the second of two triangles on the same three vertices, and a wall from one place of
/// the surface to another. Such a segment keeps its place with a weight of 0, so that the faces are
/// divided along it.
///
/// Of three contours between two points those are kept that enclose the most; contours that end at
/// a border are left as they are, and so is what is more involved.
///
/// segments  ordered by their points, one for each pair of points
void dropSurplus(std::vector<Exact::SectionSegment>& segments, SectionPoints const& points);
