// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/SectionContour.h"

#include <polyclipping/clipper.hpp>

class PlaneFrame;

/// The integer grid of a section plane, on which polygons are offset: one unit is 0.001 mm.
namespace PlaneGrid {

/// The grid point of a point in local coordinates: u and v truncated towards zero; w is dropped.
ClipperLib::IntPoint toGrid(UPoint3<float> const& local);
/// The local coordinates of a grid point; w is 0.
UPoint3<float> fromGrid(ClipperLib::IntPoint const& point);

/// Puts a contour on the grid, point by point. Of more than 4,000 points it leaves those out that
/// lie within a unit of the edges between the others.
ClipperLib::Path pathOf(SectionContour const& contour, PlaneFrame const& frame);
/// The points in space of a path.
SectionContour pointsOf(ClipperLib::Path const& path, PlaneFrame const& frame);

}  // namespace PlaneGrid
