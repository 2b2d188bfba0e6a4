// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/ToolPreparation.h"

#include "host/mesh/DisjointSets.h"
#include "host/mesh/ExactSigns.h"
#include "host/services/Polling.h"
#include "host/services/SelfIntersections.h"
#include "host/services/SpreadStar.h"
#include "host/services/VertexStars.h"
#include "host/services/boolean/Refusals.h"
#include "host/services/boolean/SeparateFans.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <optional>
#include <string>

namespace {

using Box = TriangleTree::Box;
using Corners = MeshArrays::Corners;

/// How far a corner may stand out of the plane of the triangle beside it, for the size of its
/// coordinates, and the shell still count as convex: what rounding to float makes of flat sides.
constexpr double allowedDent = 0x1p-20;

/// The triangles of a tool by shells, which are triangles that share vertices.
class ToolShells
{
public:
    ToolShells(MeshArrays const& tool, StageProgress& progress) : m_tool(tool), m_progress(progress)
    {
        DisjointSets sets(tool.points.size());
        for (std::size_t t = 0; t < tool.triangles.size(); ++t) {
            poll(t);
            Corners const& c = tool.triangles[t];
            sets.unite(c[0], c[1]);
            sets.unite(c[0], c[2]);
        }
        std::vector<std::uint32_t> shellAt(tool.points.size(), none);
        for (std::uint32_t t = 0; t < tool.triangles.size(); ++t) {
            poll(t);
            std::uint32_t& shell = shellAt[sets.root(tool.triangles[t][0])];
            if (shell == none) {
                shell = std::uint32_t(m_shells.size());
                m_shells.emplace_back();
            }
            ++m_shells[shell].count;
        }
        for (Shell& shell : m_shells)
            shell.triangles.reserve(shell.count);
        for (std::uint32_t t = 0; t < tool.triangles.size(); ++t) {
            poll(t);
            m_shells[shellAt[sets.root(tool.triangles[t][0])]].triangles.push_back(t);
        }
        for (std::uint32_t v = 0; v < tool.points.size(); ++v) {
            poll(v);
            UPoint3<float> const& p = tool.points[v];
            if (std::uint32_t const shell = shellAt[sets.root(v)]; shell != none)
                m_shells[shell].box.add({{p[0], p[1], p[2], 0}, {p[0], p[1], p[2], 0}});
        }
    }

    /// The triangles that may meet others of their own shell or of another one.
    std::vector<std::uint32_t> suspects()
    {
        findOverlaps();
        std::vector<std::uint32_t> suspects;
        for (Shell const& shell : m_shells) {
            if (isClearlyHollow(shell) || !isConvex(shell)) {
                suspects.insert(suspects.end(), shell.triangles.begin(), shell.triangles.end());
                continue;
            }
            for (std::uint32_t const t : shell.triangles) {
                poll(t);
                if (isNearOthers(shell, t))
                    suspects.push_back(t);
            }
        }
        if (!std::is_sorted(suspects.begin(), suspects.end()))
            sortPolled(suspects, m_progress, std::less<>());
        return suspects;
    }

    /// Some vertices of each shell: one where there are many shells.
    std::vector<std::uint32_t> anchors() const
    {
        constexpr std::size_t many = 8;
        std::size_t const perShell = m_shells.size() > many ? 1 : 3;
        std::vector<std::uint32_t> anchors;
        for (Shell const& shell : m_shells)
            for (std::size_t i = 0; i < perShell; ++i) {
                std::uint32_t const t = shell.triangles[i * shell.triangles.size() / perShell];
                anchors.push_back(m_tool.triangles[t][i]);
            }
        return anchors;
    }

private:
    static constexpr std::uint32_t none = 0xffffffff;

    struct Shell
    {
        std::vector<std::uint32_t> triangles;
        /// How many these are.
        std::size_t count = 0;
        Box box;
        /// Where other shells' boxes overlap it.
        std::vector<Box> overlaps;
    };

    /// Asks for a cancel now and then.
    void poll(std::size_t step) const
    {
        if (step % 4096 == 0)
            m_progress.add(0);
    }

    /// Whether some point of a large shell lies in front of some triangle: spares sorting the edges
    /// of most shells that are not convex.
    bool isClearlyHollow(Shell const& shell) const
    {
        constexpr std::size_t planes = 16, points = 64;
        std::size_t const count = shell.triangles.size();
        for (std::size_t i = 0; count > planes * points && i < planes; ++i) {
            std::uint32_t const t = shell.triangles[i * count / planes];
            for (std::size_t k = 0; k < points; ++k)
                if (rises(t, m_tool.triangles[shell.triangles[k * count / points]][0]))
                    return true;
        }
        return false;
    }

    bool isNearOthers(Shell const& shell, std::uint32_t triangle) const
    {
        Box box;
        for (int k = 0; k < 3; ++k) {
            UPoint3<float> const& p = m_tool.point(triangle, k);
            box.add({{p[0], p[1], p[2], 0}, {p[0], p[1], p[2], 0}});
        }
        return std::any_of(shell.overlaps.begin(), shell.overlaps.end(),
                           [&](Box const& overlap) { return overlap.overlaps(box); });
    }

    void findOverlaps()
    {
        std::vector<Shell*> order;
        for (Shell& shell : m_shells)
            order.push_back(&shell);
        std::sort(order.begin(), order.end(),
                  [](Shell const* a, Shell const* b) { return a->box.low[0] < b->box.low[0]; });
        for (std::size_t i = 0; i < order.size(); ++i)
            for (std::size_t j = i + 1;
                 j < order.size() && order[j]->box.low[0] <= order[i]->box.high[0]; ++j)
                if (order[i]->box.overlaps(order[j]->box)) {
                    Box common;
                    for (std::size_t k = 0; k < 4; ++k) {
                        common.low[k] = std::max(order[i]->box.low[k], order[j]->box.low[k]);
                        common.high[k] = std::min(order[i]->box.high[k], order[j]->box.high[k]);
                    }
                    order[i]->overlaps.push_back(common);
                    order[j]->overlaps.push_back(common);
                }
    }

    struct EdgeUse
    {
        std::uint32_t low, high, triangle, apex;
        bool operator<(EdgeUse const& o) const
        {
            return low != o.low ? low < o.low : high < o.high;
        }
        bool isSameEdge(EdgeUse const& o) const { return low == o.low && high == o.high; }
    };

    /// Whether a shell is one closed surface without handles that bends outward at every edge and
    /// goes around every vertex once, so that it does not meet itself. Two such surfaces that share
    /// a vertex are none.
    bool isConvex(Shell const& shell)
    {
        m_uses.clear();
        for (std::uint32_t const t : shell.triangles)
            for (std::size_t k = 0; k < 3; ++k) {
                poll(t);
                Corners const& c = m_tool.triangles[t];
                auto const [low, high] = std::minmax(c[k], c[(k + 1) % 3]);
                m_uses.push_back({low, high, t, c[(k + 2) % 3]});
            }
        sortPolled(m_uses, m_progress, std::less<>());
        for (std::size_t i = 0; i < m_uses.size(); i += 2) {
            poll(i);
            bool const isPair = i + 1 < m_uses.size() && m_uses[i].isSameEdge(m_uses[i + 1]) &&
                                (i + 2 == m_uses.size() || !m_uses[i].isSameEdge(m_uses[i + 2]));
            if (!isPair || !bendsOutward(m_uses[i], m_uses[i + 1]))
                return false;
        }
        return vertexCount(shell) + shell.triangles.size() == m_uses.size() / 2 + 2 &&
               goesOnceAroundVertices();
    }

    /// Whether the triangles at each of the vertices at hand go around it once: those of a pyramid
    /// over a star bend outward at all edges too. Each takes less than half a turn, so that fewer
    /// than five do not go around twice.
    bool goesOnceAroundVertices()
    {
        constexpr std::size_t fewest = 5;
        if (!m_stars)
            m_stars.emplace(m_tool, m_progress);
        return std::all_of(m_vertices.begin(), m_vertices.end(), [&](std::uint32_t vertex) {
            poll(vertex);
            auto const corners = m_stars->corners(vertex);
            return corners.size() < fewest || isStarSpread(m_tool, vertex, corners);
        });
    }

    /// Lists the vertices of a shell.
    std::size_t vertexCount(Shell const& shell)
    {
        m_vertices.clear();
        for (std::uint32_t const t : shell.triangles) {
            poll(t);
            for (std::uint32_t const corner : m_tool.triangles[t])
                m_vertices.push_back(corner);
        }
        sortPolled(m_vertices, m_progress, std::less<>());
        m_vertices.erase(std::unique(m_vertices.begin(), m_vertices.end()), m_vertices.end());
        return m_vertices.size();
    }

    bool bendsOutward(EdgeUse const& a, EdgeUse const& b) const
    {
        double const height = heightOf(a.triangle, b.apex), dent = dentAt(b.apex);
        // Flat is fine, folded back on itself is not.
        return height < -dent ||
               (height <= dent && (normalOf(a.triangle) | normalOf(b.triangle)) > 0);
    }

    bool rises(std::uint32_t triangle, std::uint32_t point) const
    {
        return heightOf(triangle, point) > dentAt(point);
    }

    /// How far a point lies in front of a triangle's plane.
    double heightOf(std::uint32_t triangle, std::uint32_t point) const
    {
        UVector3<double> const n = normalOf(triangle);
        ExactSigns::Offset const w(m_tool.point(triangle, 0), m_tool.points[point]);
        return (n | UVector3<double>(w.x, w.y, w.z)) / n.GetLength();
    }

    double dentAt(std::uint32_t point) const
    {
        UPoint3<float> const& p = m_tool.points[point];
        return allowedDent * std::max({std::abs(p[0]), std::abs(p[1]), std::abs(p[2])});
    }

    UVector3<double> normalOf(std::uint32_t triangle) const
    {
        ExactSigns::Offset const u(m_tool.point(triangle, 0), m_tool.point(triangle, 1));
        ExactSigns::Offset const v(m_tool.point(triangle, 0), m_tool.point(triangle, 2));
        return UVector3<double>(u.x, u.y, u.z) * UVector3<double>(v.x, v.y, v.z);
    }

    MeshArrays const& m_tool;
    StageProgress& m_progress;
    std::vector<Shell> m_shells;
    std::vector<EdgeUse> m_uses;
    std::vector<std::uint32_t> m_vertices;
    /// Made when the first shell is else found to be convex.
    std::optional<VertexStars> m_stars;
};

/// A triangle's edge.
struct OrientedEdge
{
    std::uint32_t low, high;
    bool isUpward;
    std::uint32_t triangle;
    auto operator<=>(OrientedEdge const&) const = default;
};

/// Marks triangles at edges that have more than two, or two that run along it the same way.
void markAtOddEdges(MeshArrays const& arrays, std::vector<std::uint8_t>& isMarked,
                    StageProgress& progress)
{
    Polling polling(progress);
    std::vector<OrientedEdge> edges;
    edges.reserve(3 * arrays.triangles.size());
    for (std::uint32_t t = 0; t < arrays.triangles.size(); ++t)
        for (std::size_t k = 0; k < 3; ++k) {
            polling.step();
            std::uint32_t const a = arrays.triangles[t][k], b = arrays.triangles[t][(k + 1) % 3];
            edges.push_back({std::min(a, b), std::max(a, b), a < b, t});
        }
    sortPolled(edges, progress, std::less<>());
    for (std::size_t begin = 0, end = 0; begin < edges.size(); begin = end) {
        polling.step();
        while (end < edges.size() && edges[end].low == edges[begin].low &&
               edges[end].high == edges[begin].high)
            ++end;
        bool const isOdd = end - begin > 2 ||
                           (end - begin == 2 && edges[begin].isUpward == edges[begin + 1].isUpward);
        for (std::size_t i = begin; isOdd && i < end; ++i)
            isMarked[edges[i].triangle] = 1;
    }
}

/// Per triangle of a mesh: 1 if it meets others or has an odd edge.
///
/// tree  receives the tree that is made for it; none if some triangles have no area
std::vector<std::uint8_t> meetingOnes(MeshArrays const& mesh,
                                      std::unique_ptr<TriangleTree const>& tree,
                                      StageProgress& progress)
{
    TopologyReport const topology = checkTopology(mesh, progress);
    tree = std::make_unique<TriangleTree>(mesh, topology, progress);
    IntersectionReport report = findIntersections(mesh, topology, *tree, progress);
    if (topology.nonManifoldEdges + topology.inconsistentEdges + topology.duplicateTriangles > 0)
        markAtOddEdges(mesh, report.isInvolved, progress);
    if (topology.degenerateTriangles > 0)
        tree.reset();
    return std::move(report.isInvolved);
}

/// Finds those of some triangles of a tool that meet others of them or have an odd edge.
void findSuspects(PreparedTool& tool, std::vector<std::uint32_t> const& candidates,
                  StageProgress& progress)
{
    std::vector<std::uint8_t> isMeeting;
    if (candidates.size() == tool.mesh.triangles.size()) {
        isMeeting = meetingOnes(tool.mesh, tool.tree, progress);
    } else {
        MeshArrays some;
        some.points = tool.mesh.points;
        for (std::uint32_t const t : candidates)
            some.triangles.push_back(tool.mesh.triangles[t]);
        std::unique_ptr<TriangleTree const> ofSome;
        isMeeting = meetingOnes(some, ofSome, progress);
    }
    for (std::size_t i = 0; i < candidates.size(); ++i)
        if (isMeeting[i])
            tool.suspects.push_back(candidates[i]);
}

MeshArrays withoutFlatTriangles(MeshArrays const& arrays, StageProgress& progress)
{
    MeshKernel kernel(makeMesh(arrays).release());
    kernel.getMesh()->DeleteDegenerateTris();
    kernel.getMesh()->DeleteUnreferenceVerts();
    kernel.getMesh()->UpdateVertsID();
    return copyArrays(kernel, Frame::World, progress);
}

/// Sets the anchors of a tool. Returns the triangles that may meet others.
std::vector<std::uint32_t> layOutShells(PreparedTool& tool, StageProgress& progress)
{
    ToolShells shells(tool.mesh, progress);
    tool.anchors = shells.anchors();
    return shells.suspects();
}

}  // namespace

void requireFinite(MeshArrays const& mesh, Operand operand, StageProgress& progress)
{
    Polling polling(progress);
    auto const isFinite = [](UPoint3<float> const& p) {
        return std::isfinite(p[0]) && std::isfinite(p[1]) && std::isfinite(p[2]);
    };
    if (std::all_of(mesh.points.begin(), mesh.points.end(), [&](UPoint3<float> const& p) {
            polling.step();
            return isFinite(p);
        }))
        return;
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t, polling.step()) {
        std::array const corners{mesh.point(t, 0), mesh.point(t, 1), mesh.point(t, 2)};
        auto const known = std::find_if(corners.begin(), corners.end(), isFinite);
        if (known != corners.end() && !std::all_of(corners.begin(), corners.end(), isFinite))
            Refusal::throwNotFinite(operand, *known);
    }
    Refusal::throwNotFinite(operand, {});
}

bool hasFlatTriangle(MeshArrays const& operand, StageProgress& progress)
{
    Polling polling(progress);
    for (std::size_t t = 0; t < operand.triangles.size(); ++t, polling.step())
        if (ExactSigns::areCollinear(operand.point(t, 0), operand.point(t, 1), operand.point(t, 2)))
            return true;
    return false;
}

PreparedTool prepareTool(MeshKernel const& tool, StageProgress& progress)
{
    PreparedTool prepared;
    prepared.mesh = copyArrays(tool, Frame::World, progress);
    requireFinite(prepared.mesh, Operand::second, progress);
    if (hasFlatTriangle(prepared.mesh, progress))
        prepared.mesh = withoutFlatTriangles(prepared.mesh, progress);
    std::vector<std::uint32_t> candidates = layOutShells(prepared, progress);
    if (!candidates.empty() && separateFans(prepared.mesh, progress))
        candidates = layOutShells(prepared, progress);
    prepared.isSimple = candidates.empty();
    if (!prepared.isSimple)
        findSuspects(prepared, candidates, progress);
    return prepared;
}
