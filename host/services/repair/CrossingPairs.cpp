// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/CrossingPairs.h"

#include "host/services/TrianglePair.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

#include <algorithm>
#include <bit>
#include <numeric>

namespace {

using Triangles = std::vector<std::uint32_t>;

/// Where a layer's triangles are.
using Places = std::vector<std::uint32_t>;
constexpr std::uint32_t none = SearchLayer::none;

Places placesOf(SearchLayer const& layer, std::size_t count)
{
    Places places(count, none);
    for (std::uint32_t i = 0; i < layer.numbers.size(); ++i)
        if (layer.numbers[i] != none)
            places[layer.numbers[i]] = i;
    return places;
}

/// Looks up which triangles one triangle meets.
class PartnerSearch
{
public:
    PartnerSearch(MeshArrays const& mesh, std::vector<SearchLayer> const& layers)
        : m_mesh(mesh), m_layers(layers)
    {
        for (SearchLayer const& layer : layers)
            m_places.push_back(placesOf(layer, mesh.triangles.size()));
    }

    /// Whether a triangle has no area, and so lies in no tree.
    bool isDegenerate(std::uint32_t triangle) const
    {
        for (std::size_t i = 0; i < m_layers.size(); ++i)
            if (m_places[i][triangle] != none)
                return m_layers[i].topology.isDegenerate[m_places[i][triangle]] != 0;
        return true;
    }

    Triangles partnersOf(std::uint32_t triangle, StageProgress& progress) const
    {
        Triangles partners;
        for (std::size_t layer = 0; layer < m_layers.size(); ++layer)
            if (!m_layers[layer].tree.blocks().empty())
                search(layer, triangle, partners, progress);
        std::sort(partners.begin(), partners.end());
        return partners;
    }

private:
    void search(std::size_t layer, std::uint32_t triangle, Triangles& partners,
                StageProgress& progress) const
    {
        TriangleTree const& tree = m_layers[layer].tree;
        TriangleTree::Box const box = boxOf(triangle);
        struct Node
        {
            std::size_t level;
            std::size_t place;
        };
        std::vector<Node> open{{tree.levels().size() - 1, 0}};
        std::size_t visited = 0;
        while (!open.empty()) {
            Node const node = open.back();
            open.pop_back();
            if (!tree.levels()[node.level][node.place].overlaps(box))
                continue;
            if (++visited % 256 == 0 && !progress.add(0))
                break;
            if (node.level == 0) {
                addPartners(layer, triangle, box, tree.blocks()[node.place], partners);
                continue;
            }
            for (std::size_t below = 2 * node.place + 2; below-- > 2 * node.place;)
                if (below < tree.levels()[node.level - 1].size())
                    open.push_back({node.level - 1, below});
        }
    }

    TriangleTree::Box boxOf(std::uint32_t triangle) const
    {
        TriangleTree::Box box;
        for (int k = 0; k < 3; ++k) {
            MeshArrays::Point const& p = m_mesh.point(triangle, k);
            box.add({{p.X(), p.Y(), p.Z(), 0}, {p.X(), p.Y(), p.Z(), 0}});
        }
        return box;
    }

    void addPartners(std::size_t layer, std::uint32_t triangle, TriangleTree::Box const& box,
                     TriangleTree::Block const& block, Triangles& partners) const
    {
        for (std::uint32_t near = block.overlapping(box); near != 0; near &= near - 1) {
            std::uint32_t const place = block.triangles[std::countr_zero(near)];
            std::uint32_t const other = m_layers[layer].numbers[place];
            if (other == none || other == triangle || areSpread(layer, triangle, place))
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

    /// Whether a triangle is in the layer too, and both are at a vertex around which the triangles
    /// of the layer are known not to meet elsewhere.
    bool areSpread(std::size_t layer, std::uint32_t triangle, std::uint32_t place) const
    {
        if (m_places[layer][triangle] == none)
            return false;
        MeshArrays const& mesh = m_layers[layer].mesh;
        for (std::uint32_t const vertex : mesh.triangles[m_places[layer][triangle]])
            if (m_layers[layer].topology.isSpread[vertex])
                for (std::uint32_t const other : mesh.triangles[place])
                    if (vertex == other)
                        return true;
        return false;
    }

    MeshArrays const& m_mesh;
    std::vector<SearchLayer> const& m_layers;
    std::vector<Places> m_places;
};

}  // namespace

std::vector<CrossingPair> crossingPairs(MeshArrays const& mesh, TopologyReport const& topology,
                                        TriangleTree const& tree, Triangles seeds,
                                        StageProgress& progress)
{
    Triangles numbers(mesh.triangles.size());
    std::iota(numbers.begin(), numbers.end(), 0u);
    return crossingPairs(mesh, {{mesh, topology, tree, std::move(numbers)}}, std::move(seeds),
                         progress);
}

std::vector<CrossingPair> crossingPairs(MeshArrays const& mesh,
                                        std::vector<SearchLayer> const& layers, Triangles seeds,
                                        StageProgress& progress)
{
    std::vector<CrossingPair> pairs;
    PartnerSearch const search(mesh, layers);
    std::erase_if(seeds, [&](std::uint32_t t) { return search.isDegenerate(t); });
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
