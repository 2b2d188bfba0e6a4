// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/repair/SoupMending.h"

/// A mesh without the surfaces that bound nothing.
struct WallRemoval
{
    MeshArrays mesh;
    /// A point at each surface that was left out, at each triangle that lay on another and was left
    /// out, and at each that was turned.
    FlawPlaces walls;
    FlawPlaces copies;
    FlawPlaces turned;
};

/// Leaves out walls within a solid that end at its surface, sheets that hang on it, and triangles
/// that lie there twice, and turns what faces the other way than all around it; see
/// SurfaceOrder. Does nothing where no edge has three triangles or five.
///
/// cost  a pass, and some more where there are such edges
WallRemoval withoutWalls(MeshArrays const& mesh, StageProgress& progress);
