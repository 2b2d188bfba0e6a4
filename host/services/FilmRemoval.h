// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <cstddef>

/// Removes the films that rounding leaves where two surfaces ran closer together than coordinates
/// can tell: pairs of triangles with their corners at the same three places that face opposite
/// ways. Vertices at these places are joined, so that a closed mesh stays closed.
///
/// mesh     without degenerate triangles; keeps its order. Points may be left unused
/// returns  how many triangles were removed
/// cost     n log n in the triangles
std::size_t removeFilms(MeshArrays& mesh, StageProgress& progress);
