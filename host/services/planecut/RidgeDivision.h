// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/exact/SectionTriangulation.h"
#include "host/services/planecut/SectionContours.h"

/// Divides edges of a section's filling that its halves have already.
///
/// A half may touch the plane along an edge from both sides of which it rises: a ridge. Where the
/// filling passes below it and happens to have the same edge, the half would have four triangles
/// there. Such an edge of the filling gets a point in its middle; that of the ridge stays whole.
///
/// points   get the new ones
/// filling  of one layer; with more, nothing is done, for layers that lie on each other share edges
///          anyway
void divideAtRidges(Contours const& contours, CutPlane const& plane, SectionPoints& points,
                    Exact::SectionFilling& filling);
