// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/MeshBuilders.h"

#include <random>

/// Two closed solids near each other, for tests of operations on two.
struct SolidPair
{
    std::string name;
    Soup a;
    Soup b;
};

/// A turn about a random axis and a move by at most `reach` along each axis.
UMatrix4<float> randomMotion(std::mt19937& random, float reach);
/// One of the 24 turns that keep the axes, and a move by whole numbers of at most `reach`.
UMatrix4<float> randomGridMotion(std::mt19937& random, int reach);

/// Solids of about ten units across and of some hundred triangles at the most, turned freely: all
/// surfaces cross in general position.
SolidPair randomPair(std::mt19937& random);
/// Solids of few triangles whose corners are whole numbers: faces, edges and corners coincide, or
/// lie in one another, more often than not. Solids that touch themselves only on request.
SolidPair randomGridPair(std::mt19937& random, bool withSelfTouching);
