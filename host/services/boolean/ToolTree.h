// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/TriangleTree.h"
#include "host/services/boolean/RayOrigin.h"

#include <array>
#include <bit>
#include <limits>
#include <memory>
#include <optional>
#include <utility>

/// The triangles of a tool, the second operand, found by box and by ray.
class ToolTree
{
public:
    using Box = TriangleTree::Box;

    /// tool  must outlive the tree; all of its triangles have an area
    ToolTree(MeshArrays const& tool, StageProgress& progress)
        : ToolTree(tool, std::make_unique<TriangleTree>(tool, withoutTopology(tool), progress))
    {}
    /// tree  of all of the tool's triangles
    ToolTree(MeshArrays const& tool, std::unique_ptr<TriangleTree const> tree)
        : m_tool(tool), m_ownTree(std::move(tree)), m_tree(*m_ownTree)
    {}

    MeshArrays const& mesh() const { return m_tool; }

    /// Calls `visit(triangle)` for the triangles whose boxes overlap a box. Any thread.
    template <typename Visit>
    void forOverlapping(Box const& box, Visit const& visit) const
    {
        if (m_tree.levels().empty())
            return;
        struct Node
        {
            std::uint32_t level, place;
        };
        // At most one node waits per level.
        std::array<Node, 40> waiting;
        std::size_t count = 0;
        waiting[count++] = {std::uint32_t(m_tree.levels().size() - 1), 0};
        while (count > 0) {
            Node const node = waiting[--count];
            if (!m_tree.levels()[node.level][node.place].overlaps(box))
                continue;
            if (node.level > 0) {
                if (2 * node.place + 1 < m_tree.levels()[node.level - 1].size())
                    waiting[count++] = {node.level - 1, 2 * node.place + 1};
                waiting[count++] = {node.level - 1, 2 * node.place};
                continue;
            }
            TriangleTree::Block const& block = m_tree.blocks()[node.place];
            for (std::uint32_t hits = block.overlapping(box); hits != 0; hits &= hits - 1)
                visit(block.triangles[std::size_t(std::countr_zero(hits))]);
        }
    }

    /// The tool's winding number around a point that does not lie on it. Exact; any thread.
    int windingAt(UPoint3<float> const& p) const
    {
        Box box;
        for (std::size_t k = 0; k < 3; ++k)
            box.low[k] = box.high[k] = p[int(k)];
        box.high[0] = std::numeric_limits<float>::infinity();
        box.low[3] = box.high[3] = 0;
        int winding = 0;
        forOverlapping(box, [&](std::uint32_t t) {
            winding += rayPassage(p, m_tool.point(t, 0), m_tool.point(t, 1), m_tool.point(t, 2));
        });
        return winding;
    }

    /// The tool's winding number around a point, which may lie inside a triangle of it; nothing
    /// where rounding might decide, or the line through the point tells that the tool is open. Any
    /// thread.
    std::optional<int> windingAt(RayOrigin const& p) const
    {
        Box box;
        for (std::size_t k = 0; k < 3; ++k) {
            double const margin = p.error + 1e-6 * std::abs(p.place[k]);
            box.low[k] = float(p.place[k] - margin);
            box.high[k] = float(p.place[k] + margin);
        }
        box.high[0] = std::numeric_limits<float>::infinity();
        box.low[0] = -box.high[0];
        box.low[3] = box.high[3] = 0;
        LinePassage sum;
        bool isCertain = true;
        forOverlapping(box, [&](std::uint32_t t) {
            auto const passage =
                linePassage(p, m_tool.point(t, 0), m_tool.point(t, 1), m_tool.point(t, 2));
            isCertain &= passage.has_value();
            if (passage)
                sum += *passage;
        });
        if (!isCertain || sum.ahead != sum.back)
            return {};
        return sum.ahead;
    }

private:
    static TopologyReport withoutTopology(MeshArrays const& tool)
    {
        TopologyReport report;
        report.isDegenerate.assign(tool.triangles.size(), 0);
        report.isSpread.assign(tool.points.size(), 0);
        return report;
    }

    MeshArrays const& m_tool;
    std::unique_ptr<TriangleTree const> m_ownTree;
    TriangleTree const& m_tree;
};
