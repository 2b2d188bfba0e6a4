// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/Soup.h"

#include <array>
#include <functional>

/// A cubic grid of points.
struct Grid
{
    UPoint3<float> low;
    float step = 1;
    /// Points along each axis.
    std::array<int, 3> counts{};
};

/// The closed surface around where a field is negative, by marching tetrahedra (after Doi and
/// Koide, 1991). Points keep off the grid's points, so that no triangle loses its area.
///
/// field  asked once for each point of the grid; positive in its outermost points
Soup isoSurface(Grid const& grid, std::function<float(UPoint3<float> const&)> const& field);
