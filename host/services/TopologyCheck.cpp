// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/TopologyCheck.h"

#include "host/mesh/ExactSigns.h"
#include "host/services/ShellUnion.h"
#include "host/services/SpreadStar.h"
#include "host/services/VertexStars.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

#include <algorithm>
#include <array>

namespace {

using Range = tbb::blocked_range<std::size_t>;
constexpr std::size_t grain = 2048;

/// What runs along one edge, seen from its smaller vertex.
struct StarEdge
{
    std::uint32_t otherVertex;
    std::uint32_t triangle;
    bool isOutgoing;

    bool operator<(StarEdge const& o) const
    {
        return otherVertex != o.otherVertex ? otherVertex < o.otherVertex : triangle < o.triangle;
    }
};

/// Checks the stars of a range of vertices. Each edge is looked at from its smaller vertex, each
/// triangle from its smallest.
class StarChecker
{
public:
    StarChecker(MeshArrays const& mesh, VertexStars const& stars, ShellUnion& shells,
                TopologyReport& report, std::vector<std::uint8_t>& isIrregular)
        : m_mesh(mesh), m_stars(stars), m_shells(shells), m_report(report), m_irregular(isIrregular)
    {}

    void check(std::uint32_t vertex)
    {
        auto const corners = m_stars.corners(vertex);
        if (!joinRegular(vertex, corners))
            checkEdges(vertex, corners);
        m_report.isSpread[vertex] = isStarSpread(m_mesh, vertex, corners);
    }

    std::size_t borders = 0;
    std::size_t crowded = 0;
    std::size_t inconsistent = 0;
    std::size_t duplicates = 0;

private:
    /// Joins the triangles at a vertex if each edge there is of two that agree in orientation and no
    /// two lie on each other, as at nearly all vertices. Spares the sorting.
    bool joinRegular(std::uint32_t vertex, std::span<std::uint32_t const> corners)
    {
        constexpr std::size_t few = 12;
        if (corners.size() > few)
            return false;
        std::array<std::uint32_t, few> nexts, previouses;
        for (std::size_t i = 0; i < corners.size(); ++i) {
            MeshArrays::Corners const& t = m_mesh.triangles[corners[i] / 3];
            nexts[i] = t[(corners[i] % 3 + 1) % 3];
            previouses[i] = t[(corners[i] % 3 + 2) % 3];
        }
        std::array<std::size_t, few> followers;
        for (std::size_t i = 0; i < corners.size(); ++i) {
            std::size_t leading = 0, arriving = 0;
            for (std::size_t k = 0; k < corners.size(); ++k) {
                leading += nexts[k] == previouses[i];
                arriving += previouses[k] == previouses[i];
                if (nexts[k] == previouses[i])
                    followers[i] = k;
            }
            if (leading != 1 || arriving != 1 || previouses[followers[i]] == nexts[i])
                return false;
        }
        for (std::size_t i = 0; i < corners.size(); ++i)
            if (previouses[i] > vertex)
                m_shells.join(corners[i] / 3, corners[followers[i]] / 3);
        return true;
    }

    void checkEdges(std::uint32_t vertex, std::span<std::uint32_t const> corners)
    {
        m_edges.clear();
        m_opposites.clear();
        for (std::uint32_t const corner : corners)
            collect(vertex, corner);
        std::sort(m_edges.begin(), m_edges.end());
        for (std::size_t i = 0; i < m_edges.size();)
            i = checkEdge(i);
        std::sort(m_opposites.begin(), m_opposites.end());
        auto const unique = std::unique(m_opposites.begin(), m_opposites.end());
        duplicates += std::size_t(m_opposites.end() - unique);
    }

    void collect(std::uint32_t vertex, std::uint32_t corner)
    {
        std::uint32_t const triangle = corner / 3;
        int const place = int(corner % 3);
        MeshArrays::Corners const& t = m_mesh.triangles[triangle];
        std::uint32_t const next = t[(place + 1) % 3];
        std::uint32_t const previous = t[(place + 2) % 3];
        if (next > vertex)
            m_edges.push_back({next, triangle, true});
        if (previous > vertex)
            m_edges.push_back({previous, triangle, false});
        if (next > vertex && previous > vertex)
            m_opposites.push_back(std::uint64_t(std::min(next, previous)) << 32 |
                                  std::max(next, previous));
    }

    /// Judges the edge that begins at place `first` of the sorted list; returns where the next
    /// begins.
    std::size_t checkEdge(std::size_t first)
    {
        std::size_t outgoing = m_edges[first].isOutgoing;
        std::size_t end = first + 1;
        for (; end < m_edges.size() && m_edges[end].otherVertex == m_edges[first].otherVertex;
             ++end) {
            outgoing += m_edges[end].isOutgoing;
            m_shells.join(m_edges[first].triangle, m_edges[end].triangle);
        }
        std::size_t const count = end - first;
        if (count == 2 && outgoing == 1)
            return end;
        ++(count == 1 ? borders : count == 2 ? inconsistent : crowded);
        // Several threads may store the same value here.
        for (std::size_t i = first; i < end; ++i)
            std::atomic_ref(m_irregular[m_edges[i].triangle]).store(1, std::memory_order_relaxed);
        return end;
    }

    MeshArrays const& m_mesh;
    VertexStars const& m_stars;
    ShellUnion& m_shells;
    TopologyReport& m_report;
    std::vector<std::uint8_t>& m_irregular;
    std::vector<StarEdge> m_edges;
    std::vector<std::uint64_t> m_opposites;
};

bool isFinite(MeshArrays::Point const& p)
{
    return std::isfinite(p.X()) && std::isfinite(p.Y()) && std::isfinite(p.Z());
}

bool hasNoArea(MeshArrays const& mesh, std::size_t triangle)
{
    MeshArrays::Point const& a = mesh.point(triangle, 0);
    MeshArrays::Point const& b = mesh.point(triangle, 1);
    MeshArrays::Point const& c = mesh.point(triangle, 2);
    return mesh.isCollapsed(triangle) || !isFinite(a) || !isFinite(b) || !isFinite(c) ||
           ExactSigns::areCollinear(a, b, c);
}

void findDegenerate(MeshArrays const& mesh, TopologyReport& report, StageProgress& progress)
{
    report.isDegenerate.resize(mesh.triangles.size());
    std::atomic<std::size_t> count = 0;
    tbb::parallel_for(Range(0, mesh.triangles.size(), grain), [&](Range const& range) {
        std::size_t found = 0;
        for (std::size_t t = range.begin(); t != range.end(); ++t)
            found += report.isDegenerate[t] = hasNoArea(mesh, t);
        count += found;
        progress.add(0);
    });
    report.degenerateTriangles = count;
}

void numberShells(MeshArrays const& mesh, ShellUnion& shells,
                  std::vector<std::uint8_t> const& isIrregular, TopologyReport& report)
{
    report.shellOf.resize(mesh.triangles.size());
    for (std::uint32_t t = 0; t < mesh.triangles.size(); ++t) {
        std::uint32_t const root = shells.root(t);
        if (root == t) {
            report.shellOf[t] = std::uint32_t(report.isClosedShell.size());
            report.isClosedShell.push_back(!mesh.isCollapsed(t));
        } else {
            report.shellOf[t] = report.shellOf[root];
        }
        if (isIrregular[t])
            report.isClosedShell[report.shellOf[t]] = 0;
    }
}

}  // namespace

TopologyReport checkTopology(MeshArrays const& mesh, StageProgress& progress)
{
    TopologyReport report;
    findDegenerate(mesh, report, progress);
    VertexStars const stars(mesh, progress);
    ShellUnion shells(mesh.triangles.size());
    std::vector<std::uint8_t> isIrregular(mesh.triangles.size());
    report.isSpread.resize(mesh.points.size());
    std::atomic<std::size_t> borders = 0, crowded = 0, inconsistent = 0, duplicates = 0;
    tbb::parallel_for(Range(0, mesh.points.size(), grain), [&](Range const& range) {
        StarChecker checker(mesh, stars, shells, report, isIrregular);
        for (std::size_t v = range.begin(); v != range.end(); ++v)
            checker.check(std::uint32_t(v));
        borders += checker.borders;
        crowded += checker.crowded;
        inconsistent += checker.inconsistent;
        duplicates += checker.duplicates;
        progress.add(range.size());
    });
    report.borderEdges = borders;
    report.nonManifoldEdges = crowded;
    report.inconsistentEdges = inconsistent;
    report.duplicateTriangles = duplicates;
    // An edge is judged at one end only, but it spoils the stars at both.
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t)
        if (isIrregular[t])
            for (std::uint32_t vertex : mesh.triangles[t])
                report.isSpread[vertex] = 0;
    numberShells(mesh, shells, isIrregular, report);
    return report;
}
