// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/SurfaceOrder.h"

#include "host/mesh/DisjointSets.h"
#include "host/mesh/JoinedPlaces.h"
#include "host/services/EdgeGroups.h"
#include "host/services/Polling.h"
#include "host/services/boolean/BoxCells.h"

#include <algorithm>
#include <cstdlib>
#include <map>

namespace {

using Index = std::uint32_t;
using Box = TriangleTree::Box;

/// Surfaces that end at edges where not two triangles meet that agree.
class EndingSurfaces
{
public:
    EndingSurfaces(MeshArrays const& part, StageProgress& progress)
        : m_mesh(part), m_progress(progress), m_sets(part.triangles.size())
    {
        std::vector<Index> const first = joinedPlaces(m_mesh.points);
        Polling polling(progress);
        for (MeshArrays::Corners& corners : m_mesh.triangles) {
            polling.step();
            for (Index& corner : corners)
                corner = first[corner];
        }
        EdgeGroups const edges(m_mesh, progress);
        for (std::size_t e = 0; e < edges.size(); ++e, polling.step())
            if (isJoint(edges[e]))
                m_sets.unite(edges[e][0] / 3, edges[e][1] / 3);
        joinCopies(edges);
        for (std::size_t e = 0; e < edges.size(); ++e, polling.step())
            if (!isJoint(edges[e]))
                addEnd(edges[e]);
    }

    /// All are looked at, or what is around a turned triangle elsewhere would be turned in its stead.
    SurfaceOrder orderIn(Box const& where)
    {
        std::vector<Index> const order = measure();
        mendOneByOne(order);
        mendTogether(order);
        SurfaceOrder found{std::vector<Index>(m_mesh.triangles.size(), 0),
                           std::vector<bool>(m_mesh.triangles.size(), false)};
        Index count = 0;
        for (Index const root : order)
            if (Surface& surface = m_surfaces.at(root); !surface.box.overlaps(where))
                surface.change = Change::none;
            else if (surface.change == Change::leftOut)
                surface.number = ++count;
        for (std::size_t t = 0; t < m_mesh.triangles.size() && !order.empty(); ++t)
            if (auto const at = m_surfaces.find(m_sets.root(Index(t))); at != m_surfaces.end()) {
                found.surplus[t] = at->second.number;
                found.isTurned[t] = at->second.change == Change::turned;
            }
        return found;
    }

private:
    /// What is done to a surface; the number is how many times its share in an edge goes.
    enum class Change
    {
        none = 0,
        leftOut = 1,
        turned = 2,
    };

    struct Surface
    {
        /// By edge at which it ends: how much more of it runs upward than downward.
        std::map<std::size_t, int> shares;
        Box box;
        double area = 0;
        Change change = Change::none;
        /// Of those that are left out, from 1.
        Index number = 0;
    };

    bool isUpward(Index halfEdge) const
    {
        return EdgeGroups::start(m_mesh, halfEdge) < EdgeGroups::end(m_mesh, halfEdge);
    }

    bool isJoint(std::span<Index const> edge) const
    {
        return edge.size() == 2 && isUpward(edge[0]) != isUpward(edge[1]);
    }

    /// Triangles that lie on others, side by side, are one surface: the edges between them are no
    /// ends.
    void joinCopies(EdgeGroups const& edges)
    {
        std::vector<std::pair<MeshArrays::Corners, Index>> order;
        Polling polling(m_progress);
        std::vector<bool> isListed(m_mesh.triangles.size(), false);
        for (std::size_t e = 0; e < edges.size(); ++e, polling.step())
            for (Index const halfEdge : edges[e])
                if (edges[e].size() > 2 && !isListed[halfEdge / 3]) {
                    isListed[halfEdge / 3] = true;
                    MeshArrays::Corners corners = m_mesh.triangles[halfEdge / 3];
                    std::sort(corners.begin(), corners.end());
                    order.emplace_back(corners, halfEdge / 3);
                }
        sortPolled(order, m_progress, std::less<>());
        // By triangle: how many of those on the same corners come before it.
        std::map<Index, int> layers;
        for (std::size_t i = 1; i < order.size(); ++i)
            if (order[i].first == order[i - 1].first)
                layers[order[i].second] = layers[order[i - 1].second] + 1;
        std::erase_if(layers, [](auto const& entry) { return entry.second == 0; });
        for (std::size_t e = 0; e < edges.size() && !layers.empty(); ++e, polling.step()) {
            std::map<int, Index> last;
            for (Index const halfEdge : edges[e])
                if (auto const at = layers.find(halfEdge / 3);
                    edges[e].size() > 2 && at != layers.end()) {
                    auto const [entry, isFirst] = last.try_emplace(at->second, halfEdge / 3);
                    if (!isFirst)
                        m_sets.unite(entry->second, halfEdge / 3);
                }
        }
    }

    void addEnd(std::span<Index const> edge)
    {
        std::size_t const number = m_balances.size();
        m_balances.push_back(0);
        m_uses.push_back(edge.size());
        for (Index const halfEdge : edge) {
            int const way = isUpward(halfEdge) ? 1 : -1;
            m_balances[number] += way;
            m_surfaces[m_sets.root(halfEdge / 3)].shares[number] += way;
        }
    }

    /// Box and area of all that end somewhere. Returns them, the smallest first.
    std::vector<Index> measure()
    {
        Polling polling(m_progress);
        for (std::size_t t = 0; t < m_mesh.triangles.size() && !m_surfaces.empty(); ++t) {
            polling.step();
            auto const at = m_surfaces.find(m_sets.root(Index(t)));
            if (at == m_surfaces.end())
                continue;
            at->second.box.add(boxOf(m_mesh.triangles[t], m_mesh.points));
            UPoint3<float> const& a = m_mesh.point(t, 0);
            UPoint3<float> const& b = m_mesh.point(t, 1);
            UPoint3<float> const& c = m_mesh.point(t, 2);
            UVector3<double> const u(double{b[0]} - a[0], double{b[1]} - a[1], double{b[2]} - a[2]);
            UVector3<double> const v(double{c[0]} - a[0], double{c[1]} - a[1], double{c[2]} - a[2]);
            at->second.area += (u * v).GetLength();
        }
        std::vector<Index> order;
        for (auto const& [root, surface] : m_surfaces)
            order.push_back(root);
        std::stable_sort(order.begin(), order.end(), [this](Index a, Index b) {
            return m_surfaces.at(a).area < m_surfaces.at(b).area;
        });
        return order;
    }

    /// Each time one whose change makes up for all edges at which it ends.
    void mendOneByOne(std::vector<Index> const& order)
    {
        for (bool goesOn = true; goesOn;) {
            goesOn = false;
            for (Index const root : order)
                for (Change const change : {Change::leftOut, Change::turned})
                    if (Surface& surface = m_surfaces.at(root);
                        gainOf(surface, change) > 0 && isMendedBy(surface, change)) {
                        apply(surface, change);
                        goesOn = true;
                    }
        }
    }

    /// Where triangles that lie there twice have turned ones beside them, only several changes
    /// together make up for the edges between them: each must better all edges at which its
    /// surface ends. What does not come right in the end is taken back.
    void mendTogether(std::vector<Index> const& order)
    {
        std::vector<Surface*> changed;
        for (bool goesOn = true; goesOn;) {
            goesOn = false;
            for (Index const root : order) {
                Surface& surface = m_surfaces.at(root);
                int const ifLeftOut = gainOf(surface, Change::leftOut);
                int const ifTurned = gainOf(surface, Change::turned);
                if (std::max(ifLeftOut, ifTurned) == 0)
                    continue;
                apply(surface, ifTurned > ifLeftOut ? Change::turned : Change::leftOut);
                changed.push_back(&surface);
                goesOn = true;
            }
        }
        for (bool goesOn = true; goesOn;) {
            goesOn = false;
            for (Surface* const surface : changed)
                if (surface->change != Change::none && !isMendedBy(*surface, Change::none)) {
                    takeBack(*surface);
                    goesOn = true;
                }
        }
    }

    /// An opening stays one when it is turned.
    bool doesCount(std::size_t edge, Change change) const
    {
        return change != Change::turned || m_uses[edge] > 1;
    }

    /// By how much the edges of a surface that hangs on others come nearer to being right; 0 where
    /// one of them does not.
    int gainOf(Surface const& surface, Change change) const
    {
        if (surface.change != Change::none)
            return 0;
        bool doesHang = false;
        int gain = 0;
        for (auto const& [edge, share] : surface.shares) {
            if (share == 0 || !doesCount(edge, change))
                continue;
            int const now = std::abs(m_balances[edge]);
            int const then = std::abs(m_balances[edge] - int(change) * share);
            if (then >= now)
                return 0;
            gain += now - then;
            doesHang |= m_uses[edge] > (change == Change::leftOut ? 2u : 1u);
        }
        return doesHang ? gain : 0;
    }

    /// Whether all edges of a surface are right after a change.
    bool isMendedBy(Surface const& surface, Change change) const
    {
        return std::all_of(surface.shares.begin(), surface.shares.end(), [&](auto const& of) {
            auto const& [edge, share] = of;
            Change const all = change == Change::none ? surface.change : change;
            return !doesCount(edge, all) || int(change) * share == m_balances[edge];
        });
    }

    void apply(Surface& surface, Change change)
    {
        surface.change = change;
        for (auto const& [edge, share] : surface.shares)
            m_balances[edge] -= int(change) * share;
    }

    void takeBack(Surface& surface)
    {
        for (auto const& [edge, share] : surface.shares)
            m_balances[edge] += int(surface.change) * share;
        surface.change = Change::none;
    }

    MeshArrays m_mesh;
    StageProgress& m_progress;
    DisjointSets m_sets;
    /// By edge: how many more triangles run upward than downward, and how many there are.
    std::vector<int> m_balances;
    std::vector<std::size_t> m_uses;
    /// By root.
    std::map<Index, Surface> m_surfaces;
};

}  // namespace

bool SurfaceOrder::isNone() const
{
    return std::all_of(surplus.begin(), surplus.end(), [](Index number) { return number == 0; }) &&
           std::find(isTurned.begin(), isTurned.end(), true) == isTurned.end();
}

SurfaceOrder findSurfaceOrder(MeshArrays const& part, Box const& where, StageProgress& progress)
{
    return EndingSurfaces(part, progress).orderIn(where);
}
