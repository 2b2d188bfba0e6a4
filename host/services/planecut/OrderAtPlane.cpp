// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/OrderAtPlane.h"

#include "host/mesh/DisjointSets.h"
#include "host/mesh/JoinedPlaces.h"
#include "host/mesh/MeshCopy.h"
#include "host/services/EdgeGroups.h"
#include "host/services/RecordArrays.h"

#include <algorithm>
#include <utility>

namespace {

using Corners = MeshArrays::Corners;

/// Which triangles face the other way than most of those that they hang together with over edges of
/// two triangles.
std::vector<std::uint8_t> againstMost(MeshArrays const& mesh, EdgeGroups const& edges,
                                      StageProgress& progress)
{
    constexpr std::uint32_t none = UINT32_MAX;
    std::vector<std::uint32_t> across(3 * mesh.triangles.size(), none);
    for (std::size_t e = 0; e < edges.size(); ++e)
        if (edges[e].size() == 2) {
            across[edges[e][0]] = edges[e][1];
            across[edges[e][1]] = edges[e][0];
        }
    std::vector<std::uint8_t> isReached(mesh.triangles.size(), 0);
    std::vector<std::uint8_t> isAgainst(mesh.triangles.size(), 0);
    std::vector<std::uint32_t> piece;
    for (std::uint32_t first = 0; first < mesh.triangles.size(); ++first) {
        if (std::exchange(isReached[first], 1))
            continue;
        piece.assign(1, first);
        std::size_t against = 0;
        for (std::size_t i = 0; i < piece.size(); ++i) {
            if (i % 4096 == 0)
                progress.add(0);
            against += isAgainst[piece[i]];
            for (std::uint32_t h = 3 * piece[i]; h < 3 * piece[i] + 3; ++h) {
                std::uint32_t const partner = across[h];
                if (partner == none || std::exchange(isReached[partner / 3], 1))
                    continue;
                bool const agree = EdgeGroups::start(mesh, h) == EdgeGroups::end(mesh, partner);
                isAgainst[partner / 3] = agree == (isAgainst[piece[i]] != 0);
                piece.push_back(partner / 3);
            }
        }
        for (std::uint32_t const t : piece)
            if (2 * against > piece.size())
                isAgainst[t] ^= 1;
    }
    return isAgainst;
}

class PlaneOrder
{
public:
    PlaneOrder(UMesh<float> const& part, CutPlane const& plane, StageProgress& progress)
        : m_part(part),
          m_progress(progress),
          m_mesh(copyArrays(part, progress)),
          m_isMeeting(m_mesh.triangles.size()),
          m_isKept(m_mesh.triangles.size(), true),
          m_isTurned(m_mesh.triangles.size(), false)
    {
        std::vector<std::uint32_t> const first = joinedPlaces(m_mesh.points);
        for (Corners& corners : m_mesh.triangles)
            for (std::uint32_t& corner : corners)
                corner = first[corner];
        for (std::size_t t = 0; t < m_mesh.triangles.size(); ++t) {
            int sides[3];
            for (int k = 0; k < 3; ++k)
                sides[k] = plane.sideOf(m_mesh.point(t, k));
            m_isMeeting[t] = !(sides[0] == sides[1] && sides[1] == sides[2]) || sides[0] == 0;
        }
    }

    OrderedPart run()
    {
        dropDoubles();
        m_progress.add(0);
        turn();
        OrderedPart ordered;
        for (std::size_t t = 0; t < m_isKept.size(); ++t) {
            if (!m_isKept[t])
                ordered.doubled.push_back(m_mesh.point(t, 0));
            else if (m_isTurned[t])
                ordered.turned.push_back(m_mesh.point(t, 0));
        }
        if (!ordered.doubled.empty() || !ordered.turned.empty())
            ordered.mesh = orderedCopy();
        return ordered;
    }

private:
    /// Triangles on the same three corners, next to each other; single ones are left out.
    std::vector<std::vector<std::uint32_t>> groupsOfDoubles() const
    {
        std::vector<std::pair<Corners, std::uint32_t>> sorted;
        for (std::uint32_t t = 0; t < m_mesh.triangles.size(); ++t)
            if (m_isMeeting[t] && !m_mesh.isCollapsed(t)) {
                Corners corners = m_mesh.triangles[t];
                std::sort(corners.begin(), corners.end());
                sorted.emplace_back(corners, t);
            }
        std::sort(sorted.begin(), sorted.end());
        std::vector<std::vector<std::uint32_t>> groups;
        for (std::size_t i = 0, end; i < sorted.size(); i = end) {
            for (end = i + 1; end < sorted.size() && sorted[end].first == sorted[i].first;)
                ++end;
            if (end - i == 1)
                continue;
            auto& group = groups.emplace_back();
            for (std::size_t k = i; k < end; ++k)
                group.push_back(sorted[k].second);
        }
        return groups;
    }

    /// Doubles that lie side by side belong together: only at the border of the patch that they
    /// cover can be seen that there is one triangle too many. The last ones on the same corners go
    /// first: of a solid that lies there twice both layers stay where a triangle lies there three
    /// times.
    void dropDoubles()
    {
        auto const groups = groupsOfDoubles();
        if (groups.empty())
            return;
        // By triangle: how many on the same corners come before it.
        std::vector<std::uint32_t> layers(m_mesh.triangles.size(), 0);
        std::uint32_t most = 0;
        for (auto const& group : groups)
            for (std::uint32_t i = 1; i < group.size(); ++i) {
                layers[group[i]] = i;
                most = std::max(most, i);
            }
        EdgeGroups const edges(m_mesh, m_progress);
        for (std::uint32_t layer = most; layer > 0; --layer)
            dropLayer(edges, layers, layer);
    }

    /// Drops the patches of one layer at whose edges an odd number of triangles is left.
    void dropLayer(EdgeGroups const& edges, std::vector<std::uint32_t> const& layers,
                   std::uint32_t layer)
    {
        m_progress.add(0);
        DisjointSets patches(m_mesh.triangles.size());
        auto const uniteAlong = [&](auto const& edge) {
            std::uint32_t last = UINT32_MAX;
            for (std::uint32_t const halfEdge : edge)
                if (layers[halfEdge / 3] == layer) {
                    if (last != UINT32_MAX)
                        patches.unite(last, halfEdge / 3);
                    last = halfEdge / 3;
                }
        };
        auto const isOdd = [this](auto const& edge) {
            return std::count_if(
                       edge.begin(), edge.end(),
                       [this](std::uint32_t halfEdge) { return m_isKept[halfEdge / 3]; }) %
                       2 ==
                   1;
        };
        for (std::size_t e = 0; e < edges.size(); ++e)
            uniteAlong(edges[e]);
        std::vector<std::uint8_t> isSurplus(m_mesh.triangles.size(), 0);
        for (std::size_t e = 0; e < edges.size(); ++e)
            if (isOdd(edges[e]))
                for (std::uint32_t const halfEdge : edges[e])
                    if (layers[halfEdge / 3] == layer)
                        isSurplus[patches.root(halfEdge / 3)] = 1;
        for (std::uint32_t t = 0; t < layers.size(); ++t)
            if (layers[t] == layer && isSurplus[patches.root(t)])
                m_isKept[t] = false;
    }

    void turn()
    {
        MeshArrays kept;
        kept.points = m_mesh.points;
        std::vector<std::uint32_t> places;
        for (std::uint32_t t = 0; t < m_mesh.triangles.size(); ++t)
            if (m_isKept[t]) {
                places.push_back(t);
                kept.triangles.push_back(m_mesh.triangles[t]);
            }
        EdgeGroups const edges(kept, m_progress);
        std::vector<std::uint8_t> const isTurned = againstMost(kept, edges, m_progress);
        DisjointSets patches(kept.triangles.size());
        for (std::size_t e = 0; e < edges.size(); ++e)
            if (edges[e].size() == 2 && isTurned[edges[e][0] / 3] && isTurned[edges[e][1] / 3])
                patches.unite(edges[e][0] / 3, edges[e][1] / 3);
        std::vector<std::uint8_t> doesMeet(kept.triangles.size(), 0);
        for (std::uint32_t t = 0; t < isTurned.size(); ++t)
            if (isTurned[t] && m_isMeeting[places[t]])
                doesMeet[patches.root(t)] = 1;
        for (std::uint32_t t = 0; t < isTurned.size(); ++t)
            m_isTurned[places[t]] = isTurned[t] && doesMeet[patches.root(t)];
    }

    std::unique_ptr<UMesh<float>> orderedCopy() const
    {
        auto mesh = copySelected(m_part, m_isKept);
        auto copy = mesh->triangles.begin();
        for (std::size_t t = 0; t < m_isKept.size(); ++t) {
            if (!m_isKept[t])
                continue;
            UTriangle<float>& triangle = **copy++;
            if (!m_isTurned[t])
                continue;
            std::swap(triangle.V0(1), triangle.V0(2));
            triangle.N() = -triangle.N();
        }
        return mesh;
    }

    UMesh<float> const& m_part;
    StageProgress& m_progress;
    MeshArrays m_mesh;
    std::vector<std::uint8_t> m_isMeeting;
    std::vector<bool> m_isKept;
    std::vector<bool> m_isTurned;
};

}  // namespace

OrderedPart orderAtPlane(UMesh<float> const& part, CutPlane const& plane,
                         std::function<void(int)> const& progress)
{
    StageProgress stage(progress);
    stage.begin(0, 100, 1);
    OrderedPart ordered = PlaneOrder(part, plane, stage).run();
    stage.finish();
    return ordered;
}
