// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

/// A point of a face in two coordinates, with its number.
struct FlatPoint
{
    double u = 0;
    double v = 0;
    std::uint32_t number = 0;
};

/// The numbers of points in a plane, ordered so that neighbours in the list lie close together: along
/// a space-filling curve (G. M. Morton, 1966); where that leaves a tie, by number.
std::vector<std::uint32_t> alongCurve(std::vector<FlatPoint> const& points);
