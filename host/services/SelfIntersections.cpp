// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/SelfIntersections.h"

#include "host/services/BlockSlabs.h"
#include "host/services/TrianglePair.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

#include <algorithm>
#include <bit>

namespace {

using Block = TriangleTree::Block;

/// Two nodes of one level whose boxes overlap, or one node twice.
struct NodePair
{
    std::uint32_t first;
    std::uint32_t second;
};

using ShellPairs = std::vector<std::pair<std::uint32_t, std::uint32_t>>;

void sortOut(ShellPairs& pairs)
{
    std::sort(pairs.begin(), pairs.end());
    pairs.erase(std::unique(pairs.begin(), pairs.end()), pairs.end());
}

/// Which triangles of each block are asked about, and whether any below each node is.
class AskedTriangles
{
public:
    AskedTriangles(TriangleTree const& tree, std::vector<bool> const& asked)
        : m_places(tree.blocks().size(), asked.empty() ? ~std::uint32_t(0) : 0),
          m_isAny(tree.levels().size())
    {
        for (std::size_t b = 0; b < tree.blocks().size() && !asked.empty(); ++b)
            for (int i = 0; i < TriangleTree::blockSize; ++i)
                // Places that are left over meet nothing.
                if (std::uint32_t const t = tree.blocks()[b].triangles[i]; t < asked.size())
                    m_places[b] |= std::uint32_t(asked[t]) << i;
        for (std::size_t level = 0; level < m_isAny.size(); ++level) {
            m_isAny[level].resize(tree.levels()[level].size());
            std::size_t const below = level == 0 ? m_places.size() : m_isAny[level - 1].size();
            for (std::size_t node = 0; node < below; ++node)
                if (level == 0)
                    m_isAny[0][node] = m_places[node] != 0;
                else
                    m_isAny[level][node / 2] |= m_isAny[level - 1][node];
        }
    }

    std::uint32_t places(std::uint32_t block) const { return m_places[block]; }
    bool isAnyOf(std::size_t level, NodePair nodes) const
    {
        return (m_isAny[level][nodes.first] | m_isAny[level][nodes.second]) != 0;
    }

private:
    std::vector<std::uint32_t> m_places;
    std::vector<std::vector<std::uint8_t>> m_isAny;
};

/// Walks the tree against itself below pairs of nodes.
class PairWalk
{
public:
    PairWalk(MeshArrays const& mesh, TopologyReport const& topology, TriangleTree const& tree,
             BlockSlabs const& slabs, AskedTriangles const& asked, IntersectionReport& report,
             StageProgress& progress)
        : m_mesh(mesh),
          m_topology(topology),
          m_tree(tree),
          m_slabs(slabs),
          m_asked(asked),
          m_report(report),
          m_progress(progress)
    {}

    void walk(std::size_t level, NodePair pair)
    {
        descend(level, 0, pair, [this](NodePair blocks) { visitBlocks(blocks); });
    }

    /// Calls `visit` with the pairs of nodes at level `bottom` below a pair of nodes at `level`.
    template <typename Visit>
    void descend(std::size_t level, std::size_t bottom, NodePair pair, Visit const& visit) const
    {
        if (level == bottom) {
            visit(pair);
            return;
        }
        auto const& boxes = m_tree.levels()[level - 1];
        std::uint32_t const count = std::uint32_t(boxes.size());
        for (std::uint32_t a = 2 * pair.first; a < std::min(2 * pair.first + 2, count); ++a) {
            std::uint32_t const from = pair.first == pair.second ? a : 2 * pair.second;
            for (std::uint32_t b = from; b < std::min(2 * pair.second + 2, count); ++b)
                if ((a == b || boxes[a].overlaps(boxes[b])) && m_asked.isAnyOf(level - 1, {a, b}))
                    descend(level - 1, bottom, {a, b}, visit);
        }
    }

    std::size_t pairs = 0;
    ShellPairs shells;

private:
    void visitBlocks(NodePair pair)
    {
        // Meshes that lie on themselves many times over make one task long.
        if (++m_visited % 256 == 0)
            m_isStopped |= !m_progress.add(0);
        if (m_isStopped)
            return;
        Block const& a = m_tree.blocks()[pair.first];
        Block const& b = m_tree.blocks()[pair.second];
        bool const isSame = pair.first == pair.second;
        if (!isSame && m_slabs.areApart(pair.first, pair.second))
            return;
        std::uint32_t open = a.overlapping(m_tree.levels()[0][pair.second]);
        for (; open != 0; open &= open - 1) {
            int const i = std::countr_zero(open);
            std::uint32_t met = (m_asked.places(pair.first) >> i & 1) != 0
                                    ? ~std::uint32_t(0)
                                    : m_asked.places(pair.second);
            if (isSame)
                met &= ~((2u << i) - 1);
            if (met == 0)
                continue;
            met &= b.overlapping(a.box(i));
            if (met != 0)
                met &= ~b.neighbouring(a, i);
            for (; met != 0; met &= met - 1)
                visitTriangles(a.triangles[i], b.triangles[std::countr_zero(met)]);
        }
    }

    void visitTriangles(std::uint32_t a, std::uint32_t b)
    {
        if (!doTrianglesMeet(m_mesh, a, b))
            return;
        ++pairs;
        mark(a);
        mark(b);
        std::uint32_t const shellA = m_topology.shellOf[a];
        std::uint32_t const shellB = m_topology.shellOf[b];
        if (shellA != shellB)
            addShells(std::min(shellA, shellB), std::max(shellA, shellB));
    }

    void mark(std::uint32_t triangle)
    {
        std::atomic_ref(m_report.isInvolved[triangle]).store(1, std::memory_order_relaxed);
    }

    void addShells(std::uint32_t smaller, std::uint32_t larger)
    {
        if (!shells.empty() && shells.back() == std::pair(smaller, larger))
            return;
        shells.emplace_back(smaller, larger);
        if (shells.size() >= m_shellLimit) {
            sortOut(shells);
            m_shellLimit = 2 * shells.size() + 1024;
        }
    }

    MeshArrays const& m_mesh;
    TopologyReport const& m_topology;
    TriangleTree const& m_tree;
    BlockSlabs const& m_slabs;
    AskedTriangles const& m_asked;
    IntersectionReport& m_report;
    StageProgress& m_progress;
    std::size_t m_shellLimit = 1024;
    std::size_t m_visited = 0;
    bool m_isStopped = false;
};

/// The level from which the tree is walked in parallel: the highest with enough nodes for even
/// loads and frequent progress.
std::size_t splitLevel(TriangleTree const& tree)
{
    std::size_t level = tree.levels().size() - 1;
    while (level > 0 && tree.levels()[level].size() < 1024)
        --level;
    return level;
}

}  // namespace

IntersectionReport findIntersections(MeshArrays const& mesh, TopologyReport const& topology,
                                     TriangleTree const& tree, StageProgress& progress,
                                     std::vector<bool> const& asked)
{
    IntersectionReport report;
    report.isInvolved.resize(mesh.triangles.size());
    if (tree.blocks().empty())
        return report;
    BlockSlabs const slabs(mesh, tree);
    AskedTriangles const wanted(tree, asked);
    std::size_t const level = splitLevel(tree);
    std::vector<NodePair> tasks;
    PairWalk(mesh, topology, tree, slabs, wanted, report, progress)
        .descend(tree.levels().size() - 1, level, {0, 0},
                 [&](NodePair pair) { tasks.push_back(pair); });
    progress.setAmount(tasks.size());
    std::vector<ShellPairs> shells(tasks.size());
    std::atomic<std::size_t> pairs = 0;
    using Range = tbb::blocked_range<std::size_t>;
    tbb::parallel_for(Range(0, tasks.size()), [&](Range const& range) {
        for (std::size_t i = range.begin(); i != range.end(); ++i) {
            PairWalk walk(mesh, topology, tree, slabs, wanted, report, progress);
            walk.walk(level, tasks[i]);
            pairs += walk.pairs;
            shells[i] = std::move(walk.shells);
            if (!progress.add(1))
                return;
        }
    });
    report.pairs = pairs;
    for (ShellPairs& found : shells)
        report.shells.insert(report.shells.end(), found.begin(), found.end());
    sortOut(report.shells);
    return report;
}
