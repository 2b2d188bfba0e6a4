// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <cstdint>
#include <vector>

/// A mesh made coarser by joining all points that lie in one cell of a grid, as often as wanted.
/// Triangles whose corners come to lie in less than three cells are left out.
///
/// The point that stands for a cell is the one nearest to the planes of the triangles that have a
/// corner there, so that flat faces stay flat and edges sharp: P. Lindstrom, "Out-of-Core
/// Simplification of Large Polygonal Models" (2000).
///
/// thread  any
class SurfaceClusters
{
public:
    /// cell  the side of a cell, above 0; the mesh is at most a million cells wide
    /// cost  n log n for n points
    SurfaceClusters(MeshArrays const& mesh, double cell);

    double cell() const { return m_cell; }
    std::size_t triangleCount() const { return m_triangles.size(); }

    /// Cells twice as wide, each made of eight.
    void coarsen();

    /// As it is now: the points that are used, and the triangles in the order of the first mesh.
    MeshArrays mesh() const;

private:
    using Vector = UVector3<double>;
    /// The sum over planes of w (n.x - d)^2, as far as a minimum needs it, and the points.
    struct Cluster
    {
        double xx = 0, xy = 0, xz = 0, yy = 0, yz = 0, zz = 0;
        Vector right;
        Vector sum;
        double points = 0;
    };

    void join(MeshArrays const& mesh);
    void addPlanes(MeshArrays const& mesh);
    Vector placeOf(Cluster const& cluster) const;

    double m_cell;
    MeshArrays::Point m_origin;
    // Of one cluster each, ascending.
    std::vector<std::uint64_t> m_keys;
    std::vector<Cluster> m_clusters;
    std::vector<MeshArrays::Corners> m_triangles;
};
