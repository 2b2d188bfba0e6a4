// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/RandomSolids.h"

/// Whether a mesh is closed, faces outward and crosses itself nowhere, as the check of parts tells
/// it. Shells may touch.
bool isSoundSolid(Soup const& soup);

/// A closed mesh of at most some hundred triangles with coordinates on a coarse grid.
Soup randomFuzzSolid(std::mt19937& random);

/// A move by whole numbers and a turn that keeps the axes, now and then with a shift by half or by
/// the smallest step of a float.
UMatrix4<float> randomFuzzMotion(std::mt19937& random);
