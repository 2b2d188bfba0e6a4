// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// What the edges, vertices and single triangles of a mesh say about it.
struct TopologyReport
{
    std::size_t borderEdges = 0;
    std::size_t nonManifoldEdges = 0;
    std::size_t inconsistentEdges = 0;
    std::size_t degenerateTriangles = 0;
    std::size_t duplicateTriangles = 0;

    /// Per triangle: 1 if it has no area or a coordinate that is no number.
    std::vector<std::uint8_t> isDegenerate;
    /// Per vertex: 1 if the triangles at it are known to meet nowhere but in their common vertices
    /// and edges, because one projection spreads them out flat around it.
    std::vector<std::uint8_t> isSpread;
    /// Per triangle: the shell it belongs to. Shells are triangles joined over edges, numbered by
    /// their first triangles.
    std::vector<std::uint32_t> shellOf;
    /// Per shell: 1 if every edge joins exactly two triangles that agree in orientation.
    std::vector<std::uint8_t> isClosedShell;
};

/// Checks edges, degenerate and duplicate triangles, and finds the shells.
///
/// The edges of a triangle that uses a vertex twice do not count, and neither does the triangle as
/// a duplicate. Of several triangles on the same three vertices all but one count as duplicates.
/// cost  linear in the triangles for vertices of bounded degree
TopologyReport checkTopology(MeshArrays const& mesh, StageProgress& progress);
