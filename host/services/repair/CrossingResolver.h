// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "host/services/WindingField.h"
#include "host/services/repair/CrossingPairs.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

/// Resolves crossings where they are: triangles that meet others are divided along the curves in
/// which they meet, and of what lies between the curves that is kept which bounds the solid, where
/// the mesh winds around a point more than zero times. The rest is buried in the solid, or bounds
/// pockets that are turned inside out.
///
/// Triangles that meet no others are either kept as they are or, where they are buried, left out;
/// those are found by flooding from the curves.
class CrossingResolver
{
public:
    /// Why crossings cannot be resolved.
    enum class Fault : std::uint8_t
    {
        none,
        /// Inside and outside cannot be told apart, for the surface is open nearby.
        open,
        /// A whole shell that takes part is inside out.
        insideOut,
        /// What would be left does not fit together.
        gaps,
    };

    /// Curves that can only be resolved together.
    struct Group
    {
        std::size_t pairs = 0;
        /// A point near the first of them.
        MeshArrays::Point place;
        Fault fault = Fault::none;
        MeshArrays::Point low, high;
    };

    /// mesh        where no triangle in the pairs is degenerate; borrowed
    /// isInverted  per triangle: whether its shell by itself is closed and inside out; a cavity is
    /// field       of the mesh
    /// pairs       as crossingPairs gives them
    /// cost        in proportion to the pairs, and one pass over the mesh where triangles are
    /// buried
    CrossingResolver(MeshArrays const& mesh, std::vector<std::uint8_t> const& isInverted,
                     WindingField const& field, std::vector<CrossingPair> const& pairs,
                     StageProgress& progress);

    std::vector<Group> const& groups() const { return m_groups; }

    /// The mesh with some groups resolved: the triangles that stay, in their order, then the new
    /// ones. Points are added behind the others, and none is moved.
    ///
    /// isResolved  per group; those with a fault are left in any case
    MeshArrays resolved(std::vector<std::uint8_t> const& isResolved, StageProgress& progress) const;

private:
    static constexpr std::uint32_t none = 0xffffffff;

    struct Facet
    {
        /// By the numbers of the mesh's points, and behind them of the points made.
        MeshArrays::Corners corners;
        std::uint32_t triangle;
        std::uint32_t patch;
    };

    /// Facets that lie beside each other between curves.
    struct Patch
    {
        std::uint32_t cluster;
        /// How often the facets count in the mesh, and in what it becomes.
        int present = 1;
        int wanted = 1;
        /// Half-edges of the mesh at which triangles go on that meet no others.
        std::vector<std::uint32_t> rim;
    };

    /// Triangles that hang together over pairs.
    struct Cluster
    {
        std::vector<std::uint32_t> triangles;
        std::vector<CrossingPair> pairs;
        std::size_t firstFacet = 0, endFacet = 0;
        std::uint32_t group = 0;
        Fault fault = Fault::none;
    };

    void makeClusters(std::vector<CrossingPair> const& pairs);
    void joinPlaces();
    void divide(std::uint32_t cluster, WindingField const& field, StageProgress& progress);
    void flood(StageProgress& progress);
    void makeGroups();
    void checkChains();
    void keepWholeTriangles(Cluster const& cluster, std::vector<std::uint8_t>& isRemoved,
                            std::vector<std::uint8_t>& isKept) const;
    std::uint32_t standInOf(std::uint32_t vertex) const;

    class Division;
    class Flood;

    MeshArrays const& m_mesh;
    std::vector<std::uint8_t> const& m_isInverted;
    std::vector<Cluster> m_clusters;
    /// Per triangle in a pair: its cluster.
    std::unordered_map<std::uint32_t, std::uint32_t> m_clusterOf;
    /// Vertices of such triangles at the place of another: the first one there.
    std::unordered_map<std::uint32_t, std::uint32_t> m_standIns;
    /// Per half-edge at the rim of a patch: the patch.
    std::unordered_map<std::uint32_t, std::uint32_t> m_patchAt;
    std::vector<Facet> m_facets;
    std::vector<Patch> m_patches;
    /// Points made, numbered behind those of the mesh.
    std::vector<MeshArrays::Point> m_made;
    /// Triangles that are buried, with a cluster beside them.
    std::vector<std::pair<std::uint32_t, std::uint32_t>> m_buried;
    /// Clusters that depend on each other.
    std::vector<std::pair<std::uint32_t, std::uint32_t>> m_links;
    std::vector<Group> m_groups;
};
