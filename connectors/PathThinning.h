// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <polyclipping/clipper.hpp>

/// A closed path without the points that its others tell of well enough: none left out lies farther
/// than the tolerance, in grid units, from the edge that replaces it (after Douglas and Peucker,
/// 1973). The first point and the one farthest from it stay.
///
/// cost  O(n log n) for what is cut from solids
ClipperLib::Path thinned(ClipperLib::Path const& path, double tolerance);
