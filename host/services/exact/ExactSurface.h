// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// For the sources of this folder only: it shows CGAL's types.

#include "host/services/MeshArrays.h"

#include <CGAL/Exact_predicates_exact_constructions_kernel.h>
#include <CGAL/Surface_mesh.h>

#include <cstdint>
#include <vector>

using ExactKernel = CGAL::Exact_predicates_exact_constructions_kernel;

/// A closed mesh as the library's surface with exact points.
struct ExactSurface
{
    using Mesh = CGAL::Surface_mesh<ExactKernel::Point_3>;
    using Vertex = Mesh::Vertex_index;
    using Face = Mesh::Face_index;
    using Halfedge = Mesh::Halfedge_index;

    Mesh mesh;
    /// Per edge: whether it lies on the other surface.
    Mesh::Property_map<Mesh::Edge_index, bool> isShared;
    /// Per vertex made from the arrays: its place there.
    std::vector<std::uint32_t> origins;

    /// A vertex that holds two fans stands for several vertices of the surface.
    ///
    /// arrays   without degenerate triangles
    /// returns  whether the triangles form a closed surface
    bool build(MeshArrays arrays, StageProgress& progress);

    /// The patches between shared edges: per face (removed ones included) the number of its patch.
    std::vector<std::uint32_t> patches(std::vector<Face>& representatives,
                                       StageProgress& progress) const;

    std::array<Vertex, 3> corners(Face face) const;
    ExactKernel::Triangle_3 triangle(Face face) const;
};

/// The nearest float; of two equally near ones that with the even last bit.
float nearestFloat(ExactKernel::FT const& number);
