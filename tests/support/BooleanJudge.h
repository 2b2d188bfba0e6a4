// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/Soup.h"

#include <cstddef>
#include <random>
#include <string>

/// Everything that the boolean operations make of two solids.
struct BooleanPieces
{
    Soup united;
    Soup common;
    Soup difference;
    /// The two pieces of a split.
    Soup within;
    Soup outside;
};

/// How often a mesh winds around a point: the solid angles of all triangles added up (after van
/// Oosterom and Strackee, 1983). Slow, and of use only away from the surface.
int windingNumberAt(Soup const& soup, UPoint3<double> const& point);
/// The distance of a point from the nearest triangle.
double distanceFrom(Soup const& soup, UPoint3<double> const& point);

/// What is wrong with the pieces of two solids, in words; empty if nothing is. An independent
/// judge. Checked: every piece is closed, without degenerate triangles or films, and crosses itself
/// nowhere; volumes add up
/// to 1e-6; areas are not larger than the operands allow; the split has the pieces of the two
/// operations; and at `samples` random points at some distance from all surfaces the pieces are
/// solid where the operations' rules say so.
///
/// a, b          closed solids whose winding numbers are 0 and 1
/// unitsAllowed  how deep triangles of a piece may cross, in units of their last place: more than
///               nothing only where layers are thinner than floats tell apart
std::string faultsOfPieces(Soup const& a, Soup const& b, BooleanPieces const& pieces,
                           std::size_t samples, std::mt19937& random, double unitsAllowed = 0);
