// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <optional>

/// The surface of the solid around which a mesh winds more than zero times: bodies that overlap,
/// nest, coincide or cross themselves become one. It is what a union makes of its tool.
///
/// mesh     closed; triangles without area are left out
/// returns  nothing where the mesh turns out to be open, or its crossings contradict each other or
///          are more than there is memory for; else a closed mesh of which no edge that the mesh does
///          not have joins more than two triangles. Crossings that rounding makes may be left
/// throws   what the progress function throws
/// cost     some microseconds for a triangle that meets others, and less than one for each other
std::optional<MeshArrays> unitedLayers(MeshArrays const& mesh, StageProgress& progress);
