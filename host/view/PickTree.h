// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

/// Finds the first triangle of a mesh in the way of a ray. Boxes in a binary tree over blocks of
/// triangles along a space-filling curve; it takes about 14 bytes per triangle and reads the
/// corners from the mesh.
class PickTree
{
public:
    struct Ray
    {
        UPoint3<double> origin;
        UVector3<double> direction;
        /// Triangles that are seen from behind are not hit.
        bool onlyFront = false;
    };

    struct Hit
    {
        std::uint32_t triangle;
        /// In lengths of the ray's direction.
        double distance;
    };

    /// cost  linear in the triangles, on all cores
    explicit PickTree(MeshKernel const& kernel);

    /// Made from the mesh that the kernel has now, which has kept its number of triangles. Records
    /// that were moved in place do not show here.
    bool isOf(MeshKernel const& kernel) const;

    /// The hit nearest to the origin, in the coordinates of the records. The mesh is that of the
    /// kernel it was made from.
    std::optional<Hit> firstHit(UMesh<float> const& mesh, Ray const& ray) const;

private:
    struct Box
    {
        float low[3];
        float high[3];
    };
    struct Node
    {
        std::size_t level;
        std::size_t place;
        double entry;
    };

    static constexpr std::size_t blockSize = 8;

    void addLevels(MeshArrays const& mesh);
    void testBlock(UMesh<float> const& mesh, std::size_t block, Ray const& ray,
                   std::optional<Hit>& best) const;

    std::weak_ptr<UMesh<float> const> m_mesh;
    std::vector<std::uint32_t> m_order;
    // Box i of a level spans boxes 2i and 2i + 1 of the level below; the last level has one box.
    std::vector<std::vector<Box>> m_levels;
};
