// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/StageProgress.h"
#include "platform/mesh/MeshKernel.h"

#include <array>
#include <cstdint>
#include <vector>

/// A triangle mesh as two packed arrays, in the order of the lists it was made from.
struct MeshArrays
{
    using Point = UPoint3<float>;
    using Corners = std::array<std::uint32_t, 3>;

    std::vector<Point> points;
    std::vector<Corners> triangles;

    Point const& point(std::size_t triangle, int corner) const
    {
        return points[triangles[triangle][corner]];
    }

    /// Whether two corners are the same vertex.
    bool isCollapsed(std::size_t triangle) const
    {
        Corners const& t = triangles[triangle];
        return t[0] == t[1] || t[1] == t[2] || t[2] == t[0];
    }
};

/// Which coordinates a copy of a mesh gets.
enum class Frame
{
    /// As the records have them.
    Local,
    /// Moved by the kernel's matrix. A reflection also turns the triangles, so that what faces
    /// outward still does.
    World,
};

/// Copies the mesh of a kernel, which is only read. Vertex identifiers are used where they are
/// valid; vertices that are missing in the vertex list are added behind it.
MeshArrays copyArrays(MeshKernel const& kernel, Frame frame, StageProgress& progress);

/// A new mesh of heap records with the same content, identifiers and unit normals set; neighbour
/// links are not.
std::unique_ptr<UMesh<float>> makeMesh(MeshArrays const& arrays);
