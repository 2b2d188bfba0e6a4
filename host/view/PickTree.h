// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "host/view/ViewPlane.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

/// Finds the first triangle of a mesh in the way of a ray, and those near a plane. Boxes in a
/// binary tree over blocks of triangles along a space-filling curve; it takes about 14 bytes per
/// triangle and reads the corners from the mesh.
class PickTree
{
public:
    struct Ray
    {
        UPoint3<double> origin;
        UVector3<double> direction;
        /// Triangles that are seen from behind are not hit.
        bool onlyFront = false;
        /// What is hit lies between these, in lengths of the direction.
        double nearest = 0;
        double farthest = std::numeric_limits<double>::infinity();

        /// Leaves what lies on the plane and on the side that its normal points away from.
        void limitBelow(ViewPlane const& plane);
    };

    struct Hit
    {
        std::uint32_t triangle;
        /// In lengths of the ray's direction.
        double distance;
    };

    /// cost  linear in the triangles, on all cores
    explicit PickTree(MeshKernel const& kernel);
    /// copy  of the mesh, in the coordinates of the records
    PickTree(std::shared_ptr<UMesh<float> const> const& mesh, MeshArrays const& copy);

    /// Made from the mesh that the kernel has now, which has kept its number of triangles. Records
    /// that were moved in place do not show here.
    bool isOf(MeshKernel const& kernel) const { return isOf(kernel.readMesh()); }
    bool isOf(std::shared_ptr<UMesh<float> const> const& mesh) const;

    /// The hit nearest to the origin, in the coordinates of the records. The mesh is that of the
    /// kernel it was made from.
    std::optional<Hit> firstHit(UMesh<float> const& mesh, Ray const& ray) const;

    /// Calls the visitor for all triangles that a plane meets, and for some beside it.
    template <typename Visitor>
    void forTrianglesNear(ViewPlane const& plane, Visitor const& visit) const
    {
        if (m_levels.empty())
            return;
        std::vector<std::uint32_t> const blocks = blocksAcross(plane);
        for (std::size_t const block : blocks)
            for (std::size_t i = block * blockSize;
                 i < std::min((block + 1) * blockSize, m_order.size()); ++i)
                visit(m_order[i]);
    }

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

    std::vector<std::uint32_t> blocksAcross(ViewPlane const& plane) const;
    void addLevels(MeshArrays const& mesh);
    void testBlock(UMesh<float> const& mesh, std::size_t block, Ray const& ray,
                   std::optional<Hit>& best) const;

    std::weak_ptr<UMesh<float> const> m_mesh;
    std::vector<std::uint32_t> m_order;
    // Box i of a level spans boxes 2i and 2i + 1 of the level below; the last level has one box.
    std::vector<std::vector<Box>> m_levels;
};
