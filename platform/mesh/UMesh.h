// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/UTriangle.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

/// The triangle container. It owns the records in its lists and frees them. The two lists may be
/// swapped with those of another mesh, which moves the geometry without copying; whoever swaps
/// rewrites the counts. A mesh is empty exactly when its triangle list has no element.
template <typename T>
class UMesh
{
public:
    std::vector<UTriangle<T>*> triangles;
    std::vector<UVertex<T>*> vertices;
    std::uint32_t triangleCount = 0;
    std::uint32_t vertexCount = 0;

    UMesh() = default;
    ~UMesh();
    UMesh(UMesh const&) = delete;
    UMesh& operator=(UMesh const&) = delete;

    /// Append; the record now belongs to the mesh. Add the vertices first, then the triangles that
    /// point at them.
    void AddVertex(UVertex<T>* vertex)
    {
        vertices.push_back(vertex);
        vertexCount = std::uint32_t(vertices.size());
    }
    void AddTriangle(UTriangle<T>* triangle)
    {
        triangles.push_back(triangle);
        triangleCount = std::uint32_t(triangles.size());
    }

    /// Fills the neighbour links of all triangles, and one triangle per vertex, from shared
    /// vertices. Where an edge has more than two triangles, oppositely directed ones are paired in
    /// list order and what is left over becomes a border.
    ///
    /// keepLinks  true skips the work when every triangle already has a neighbour at every edge
    /// cost       one pass over the triangles, plus one sort of the edges by vertex
    void BuildTopo(std::function<void(int)> progress, bool keepLinks);

    /// Removes triangles without area and returns how many. A closed mesh stays closed: a triangle
    /// with two equal corners collapses, one with three corners in a line is swapped into its
    /// neighbour. Neighbour links are not kept up.
    std::size_t DeleteDegenerateTris();

    /// Frees the vertices that no triangle uses, returns how many.
    std::size_t DeleteUnreferenceVerts();

    /// Renumber the identifiers in list order.
    void UpdateTrisID();
    void UpdateVertsID();
};

extern template class UMesh<float>;
