// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

/// The triangles of a mesh under boxes, four to a box at every level, for the distance of points.
/// Triangles without area count as the segments or points that they are; those with a coordinate
/// that is no number are left out.
///
/// The boxes of a small patch of the surface lie along the patch and are as flat as it is. From
/// afar, boxes along the axes would look nearer than what they hold by a good part of their size,
/// and hundreds of them nearer than the nearest triangle.
///
/// See docs/decisions/0007-distances-and-rings.md.
class DistanceTree
{
public:
    /// mesh  is not needed afterwards
    /// cost  O(n log n), on all cores
    /// source  boxes halved at the median of the triangles' centres along their longest side
    DistanceTree(MeshArrays const& mesh, StageProgress& progress);

    /// The square of the distance from the nearest triangle, in double throughout; infinity if
    /// there is no triangle or a coordinate of the point is not finite. Any thread.
    double squaredDistance(MeshArrays::Point const& point) const;

private:
    static constexpr int width = 4;
    /// Enough for any number of triangles that 32 bits count.
    static constexpr int maximumLevels = 16;

    /// The boxes of four children, by axis of a frame that they share. The frame has a column for
    /// each coordinate: what one of it adds along the three axes.
    struct alignas(16) Node
    {
        float frame[3][width];
        float low[3][width];
        float high[3][width];
    };
    /// Child i of node n is node 4n + i of the level below; below level 0 lie the triangles.
    struct Level
    {
        std::vector<Node> nodes;
        std::size_t children = 0;
    };
    /// A child that may be nearer than what has been found.
    struct Candidate
    {
        float bound;
        std::uint32_t place;
        int level;
    };

    struct Search;
    /// A child while the tree is built: its box along the axes and the sum of its normals.
    struct Patch
    {
        MeshArrays::Point low;
        MeshArrays::Point high;
        UVector3<float> normal;

        void add(Patch const& other);
    };

    static Patch patchOf(std::array<MeshArrays::Point, 3> const& triangle);
    void addLevel(std::vector<Patch> const& patches);
    void fillNode(Node& node, std::size_t place, std::vector<Patch> const& patches) const;
    void fillChild(Node& node, int child, std::size_t begin, std::size_t end) const;
    void prefetch(std::uint32_t child, int level) const;
    int candidates(Search const& search, std::uint32_t node, int level, Candidate* found) const;

    std::vector<std::array<MeshArrays::Point, 3>> m_triangles;
    std::vector<Level> m_levels;
};
