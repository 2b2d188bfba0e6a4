// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/Soup.h"

#include <random>

/// A closed mesh of some tens of triangles with small whole numbers for coordinates, so that faces,
/// edges and corners coincide: shells that overlap, touch or lie on each other, surfaces that cross
/// themselves, and sides that are folded within their plane. All triangles have an area.
Soup randomSmallPart(std::mt19937& random);
