// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

/// What can be said of a mesh as a solid, in world millimetres, the kernel's matrix applied.
struct MeshFacts
{
    std::size_t triangles = 0;
    std::size_t vertices = 0;
    // Shells and edges are counted after points at the same place have become one, as they do in a
    // file; triangles that thereby lose a corner do not count.
    /// Sets of triangles that hang together over edges.
    std::size_t shells = 0;
    /// Enclosed volume, positive if the triangles face outward. A mesh that is not closed encloses
    /// none; the number then counts cones to the origin, and is not for people to see.
    double volume = 0;
    double area = 0;
    /// Edges with one triangle.
    std::size_t borderEdges = 0;
    /// Edges with more than two, as where two shells touch along an edge.
    std::size_t nonManifoldEdges = 0;
    /// Edges with two that face opposite sides.
    std::size_t inconsistentEdges = 0;
    /// Whether the mesh bounds a solid: every edge joins exactly two triangles that agree, and
    /// there is at least one triangle. The one meaning of the word for report, table and window.
    bool closed = false;
    UBox3<float> box;

    /// What keeps the mesh from being closed.
    std::size_t openEdges() const { return borderEdges + nonManifoldEdges + inconsistentEdges; }
};

/// Measures a mesh, all sums in double.
///
/// thread  any; the kernel is only read
/// cost    linear in the triangles; about as long as three passes over the records
MeshFacts measureMesh(MeshKernel const& kernel);
/// The same for a mesh under a placement of the caller's.
MeshFacts measureMesh(UMesh<float> const& mesh, UMatrix4<float> const& placement);
/// The same for packed arrays, in world coordinates.
///
/// triangles  places of corners in `points`, counter-clockwise from outside
MeshFacts measureMesh(std::span<UPoint3<float> const> points,
                      std::span<std::array<std::uint32_t, 3> const> triangles);
