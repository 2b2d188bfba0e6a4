// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/Soup.h"

#include <random>

/// A part of at most some hundred triangles as people own them: shells that overlap, nest, touch,
/// coincide or nearly do, points that lie beside their place so that the surface crosses itself, on
/// a coarse grid or turned freely. Its edges are paired.
///
/// withInverted  shells may be inside out
Soup randomBrokenPart(std::mt19937& random, bool withInverted);

/// The same with a triangle missing, twice, or turned round.
Soup damaged(Soup part, std::mt19937& random);
