// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/CrossingPairs.h"

#include "host/services/TrianglePair.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

#include <algorithm>
#include <bit>

namespace {

using Triangles = std::vector<std::uint32_t>;

/// Looks up which triangles one triangle meets.
class PartnerSearch
{
public:
    PartnerSearch(MeshArrays const& mesh, TopologyReport const& topology, TriangleTree const& tree)
        : m_mesh(mesh), m_topology(topology), m_tree(tree)
    {}

    Triangles partnersOf(std::uint32_t triangle, StageProgress& progress) const
    {
        Triangles partners;
        TriangleTree::Box const box = boxOf(triangle);
        struct Node
        {
            std::size_t level;
            std::size_t place;
        };
        std::vector<Node> open{{m_tree.levels().size() - 1, 0}};
        std::size_t visited = 0;
        while (!open.empty()) {
            Node const node = open.back();
            open.pop_back();
            if (!m_tree.levels()[node.level][node.place].overlaps(box))
                continue;
            if (++visited % 256 == 0 && !progress.add(0))
                break;
            if (node.level == 0) {
                addPartners(triangle, box, m_tree.blocks()[node.place], partners);
                continue;
            }
            for (std::size_t below = 2 * node.place + 2; below-- > 2 * node.place;)
                if (below < m_tree.levels()[node.level - 1].size())
                    open.push_back({node.level - 1, below});
        }
        std::sort(partners.begin(), partners.end());
        return partners;
    }

private:
    TriangleTree::Box boxOf(std::uint32_t triangle) const
    {
        TriangleTree::Box box;
        for (int k = 0; k < 3; ++k) {
            MeshArrays::Point const& p = m_mesh.point(triangle, k);
            box.add({{p.X(), p.Y(), p.Z(), 0}, {p.X(), p.Y(), p.Z(), 0}});
        }
        return box;
    }

    void addPartners(std::uint32_t triangle, TriangleTree::Box const& box,
                     TriangleTree::Block const& block, Triangles& partners) const
    {
        for (std::uint32_t near = block.overlapping(box); near != 0; near &= near - 1) {
            std::uint32_t const other = block.triangles[std::countr_zero(near)];
            if (other == triangle || areSpread(triangle, other))
                continue;
            if (doTrianglesMeet(m_mesh, triangle, other) || areDuplicates(triangle, other))
                partners.push_back(other);
        }
    }

    bool areDuplicates(std::uint32_t a, std::uint32_t b) const
    {
        MeshArrays::Corners const &s = m_mesh.triangles[a], &t = m_mesh.triangles[b];
        return std::is_permutation(s.begin(), s.end(), t.begin());
    }

    /// Whether both are at a vertex around which triangles are known not to meet elsewhere.
    bool areSpread(std::uint32_t a, std::uint32_t b) const
    {
        for (std::uint32_t const vertex : m_mesh.triangles[a])
            if (m_topology.isSpread[vertex])
                for (std::uint32_t const other : m_mesh.triangles[b])
                    if (vertex == other)
                        return true;
        return false;
    }

    MeshArrays const& m_mesh;
    TopologyReport const& m_topology;
    TriangleTree const& m_tree;
};

}  // namespace

std::vector<CrossingPair> crossingPairs(MeshArrays const& mesh, TopologyReport const& topology,
                                        TriangleTree const& tree, Triangles seeds,
                                        StageProgress& progress)
{
    std::vector<CrossingPair> pairs;
    if (tree.blocks().empty())
        return pairs;
    PartnerSearch const search(mesh, topology, tree);
    std::erase_if(seeds, [&](std::uint32_t t) { return topology.isDegenerate[t] != 0; });
    std::vector<std::uint8_t> isKnown(mesh.triangles.size(), 0);
    for (std::uint32_t const seed : seeds)
        isKnown[seed] = 1;
    while (!seeds.empty()) {
        std::vector<Triangles> partners(seeds.size());
        using Range = tbb::blocked_range<std::size_t>;
        tbb::parallel_for(Range(0, seeds.size(), 64), [&](Range const& range) {
            for (std::size_t i = range.begin(); i != range.end(); ++i) {
                partners[i] = search.partnersOf(seeds[i], progress);
                if (!progress.add(0))
                    return;
            }
        });
        Triangles next;
        for (std::size_t i = 0; i < seeds.size(); ++i)
            for (std::uint32_t const partner : partners[i]) {
                pairs.emplace_back(std::min(seeds[i], partner), std::max(seeds[i], partner));
                if (!isKnown[partner]) {
                    isKnown[partner] = 1;
                    next.push_back(partner);
                }
            }
        std::sort(next.begin(), next.end());
        seeds = std::move(next);
    }
    std::sort(pairs.begin(), pairs.end());
    pairs.erase(std::unique(pairs.begin(), pairs.end()), pairs.end());
    return pairs;
}
