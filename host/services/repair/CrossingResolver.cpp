// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/CrossingResolver.h"

#include "host/mesh/DisjointSets.h"
#include "host/services/repair/RoundedRest.h"
#include "host/services/repair/SoupMending.h"

#include <algorithm>
#include <tuple>

namespace {

using Point = MeshArrays::Point;
using Corners = MeshArrays::Corners;

/// What the change of a cluster adds to the balance of an edge.
struct Term
{
    std::uint64_t edge;
    std::uint32_t cluster;
    int count;
};

void addEdges(Corners const& corners, int count, std::uint32_t cluster, std::vector<Term>& terms)
{
    for (int k = 0; k < 3; ++k) {
        std::uint64_t const a = corners[k], b = corners[(k + 1) % 3];
        if (a < b)
            terms.push_back({a << 32 | b, cluster, count});
        else if (b < a)
            terms.push_back({b << 32 | a, cluster, -count});
    }
}

/// One term for each edge and cluster, those that come to nothing left out.
std::vector<Term> summedUp(std::vector<Term> terms)
{
    std::sort(terms.begin(), terms.end(), [](Term const& a, Term const& b) {
        return std::tie(a.edge, a.cluster) < std::tie(b.edge, b.cluster);
    });
    std::vector<Term> sums;
    for (Term const& term : terms)
        if (!sums.empty() && sums.back().edge == term.edge && sums.back().cluster == term.cluster)
            sums.back().count += term.count;
        else
            sums.push_back(term);
    std::erase_if(sums, [](Term const& term) { return term.count == 0; });
    return sums;
}

}  // namespace

CrossingResolver::CrossingResolver(MeshArrays const& mesh,
                                   std::vector<std::uint8_t> const& isInverted,
                                   WindingField const& field,
                                   std::vector<CrossingPair> const& pairs, StageProgress& progress)
    : m_mesh(mesh), m_isInverted(isInverted)
{
    makeClusters(pairs);
    joinPlaces();
    progress.setAmount(m_clusters.size() + 1);
    for (std::uint32_t i = 0; i < m_clusters.size(); ++i) {
        progress.add(1);
        divide(i, field, progress);
    }
    flood(progress);
    checkChains();
    makeGroups();
}

void CrossingResolver::makeClusters(std::vector<CrossingPair> const& pairs)
{
    std::vector<std::uint32_t> triangles;
    for (auto const& [a, b] : pairs)
        triangles.insert(triangles.end(), {a, b});
    std::sort(triangles.begin(), triangles.end());
    triangles.erase(std::unique(triangles.begin(), triangles.end()), triangles.end());
    auto const rankOf = [&](std::uint32_t t) {
        return std::uint32_t(std::lower_bound(triangles.begin(), triangles.end(), t) -
                             triangles.begin());
    };
    DisjointSets sets(triangles.size());
    for (auto const& [a, b] : pairs)
        sets.unite(rankOf(a), rankOf(b));
    std::vector<std::uint32_t> clusterAt(triangles.size(), none);
    for (std::uint32_t i = 0; i < triangles.size(); ++i) {
        std::uint32_t& cluster = clusterAt[sets.root(i)];
        if (cluster == none) {
            cluster = std::uint32_t(m_clusters.size());
            m_clusters.emplace_back();
        }
        m_clusters[cluster].triangles.push_back(triangles[i]);
        m_clusterOf[triangles[i]] = cluster;
    }
    for (CrossingPair const& pair : pairs)
        m_clusters[m_clusterOf.at(pair.first)].pairs.push_back(pair);
}

/// Curves may pass through vertices, so those at one place count as one.
void CrossingResolver::joinPlaces()
{
    std::vector<std::uint32_t> vertices;
    for (Cluster const& cluster : m_clusters)
        for (std::uint32_t const t : cluster.triangles)
            vertices.insert(vertices.end(), m_mesh.triangles[t].begin(), m_mesh.triangles[t].end());
    std::sort(vertices.begin(), vertices.end());
    vertices.erase(std::unique(vertices.begin(), vertices.end()), vertices.end());
    std::stable_sort(vertices.begin(), vertices.end(), [&](std::uint32_t a, std::uint32_t b) {
        Point const &p = m_mesh.points[a], &q = m_mesh.points[b];
        return std::tuple(p.X(), p.Y(), p.Z()) < std::tuple(q.X(), q.Y(), q.Z());
    });
    for (std::size_t i = 1; i < vertices.size(); ++i)
        if (m_mesh.points[vertices[i]] == m_mesh.points[vertices[i - 1]])
            m_standIns[vertices[i]] = standInOf(vertices[i - 1]);
}

std::uint32_t CrossingResolver::standInOf(std::uint32_t vertex) const
{
    auto const found = m_standIns.find(vertex);
    return found == m_standIns.end() ? vertex : found->second;
}

void CrossingResolver::makeGroups()
{
    DisjointSets sets(m_clusters.size());
    for (auto const& [a, b] : m_links)
        sets.unite(a, b);
    std::vector<std::uint32_t> groupAt(m_clusters.size(), none);
    for (std::uint32_t i = 0; i < m_clusters.size(); ++i) {
        Cluster& cluster = m_clusters[i];
        std::uint32_t& number = groupAt[sets.root(i)];
        if (number == none) {
            number = std::uint32_t(m_groups.size());
            Point const& place = m_mesh.point(cluster.triangles.front(), 0);
            m_groups.push_back({0, place, Fault::none, place, place});
        }
        cluster.group = number;
        Group& group = m_groups[number];
        group.pairs += cluster.pairs.size();
        group.fault = std::max(group.fault, cluster.fault);
        for (std::uint32_t const t : cluster.triangles)
            for (int k = 0; k < 3; ++k)
                for (int axis = 0; axis < 3; ++axis) {
                    float const c = m_mesh.point(t, k)[axis];
                    group.low[axis] = std::min(group.low[axis], c);
                    group.high[axis] = std::max(group.high[axis], c);
                }
    }
}

/// What is taken away must have the same border as what comes in its place. Clusters in which it
/// has not may make up for each other.
void CrossingResolver::checkChains()
{
    std::vector<Term> terms;
    for (Facet const& facet : m_facets) {
        Patch const& patch = m_patches[facet.patch];
        if (patch.wanted != patch.present)
            addEdges(facet.corners, patch.wanted - patch.present, patch.cluster, terms);
    }
    for (auto const& [triangle, cluster] : m_buried) {
        Corners corners = m_mesh.triangles[triangle];
        for (std::uint32_t& corner : corners)
            corner = standInOf(corner);
        addEdges(corners, -1, cluster, terms);
    }
    terms = summedUp(std::move(terms));
    for (std::size_t i = 0; i < terms.size();) {
        std::uint64_t const edge = terms[i].edge;
        std::uint32_t const first = terms[i].cluster;
        int sum = 0;
        for (; i < terms.size() && terms[i].edge == edge; ++i) {
            sum += terms[i].count;
            m_links.emplace_back(first, terms[i].cluster);
        }
        if (sum != 0 && m_clusters[first].fault == Fault::none)
            m_clusters[first].fault = Fault::gaps;
    }
}

/// Marks the triangles of a cluster as removed, except those that stay undivided; their facets are
/// marked as kept.
void CrossingResolver::keepWholeTriangles(Cluster const& cluster,
                                          std::vector<std::uint8_t>& isRemoved,
                                          std::vector<std::uint8_t>& isKept) const
{
    for (std::uint32_t const t : cluster.triangles)
        isRemoved[t] = 1;
    for (std::size_t f = cluster.firstFacet; f < cluster.endFacet; ++f) {
        Facet const& facet = m_facets[f];
        if (m_patches[facet.patch].wanted != 1)
            continue;
        Corners whole = m_mesh.triangles[facet.triangle];
        for (std::uint32_t& corner : whole)
            corner = standInOf(corner);
        for (int k = 0; k < 3; ++k, std::rotate(whole.begin(), whole.begin() + 1, whole.end()))
            if (whole == facet.corners) {
                isRemoved[facet.triangle] = 0;
                isKept[f] = 1;
            }
    }
}

MeshArrays CrossingResolver::resolved(std::vector<std::uint8_t> const& isResolved,
                                      StageProgress& progress) const
{
    auto const isActive = [&](Cluster const& cluster) {
        return isResolved[cluster.group] && m_groups[cluster.group].fault == Fault::none;
    };
    MeshArrays mesh = m_mesh;
    std::vector<std::uint8_t> isRemoved(m_mesh.triangles.size(), 0), isKept(m_facets.size(), 0);
    for (Cluster const& cluster : m_clusters)
        if (isActive(cluster))
            keepWholeTriangles(cluster, isRemoved, isKept);
    for (auto const& [triangle, cluster] : m_buried)
        if (isActive(m_clusters[cluster]))
            isRemoved[triangle] = 1;
    if (!m_standIns.empty())
        for (Corners& corners : mesh.triangles)
            for (std::uint32_t& corner : corners)
                corner = standInOf(corner);
    removeTriangles(mesh, isRemoved);
    std::size_t const firstNew = mesh.triangles.size();
    mesh.points.insert(mesh.points.end(), m_made.begin(), m_made.end());
    for (Cluster const& cluster : m_clusters) {
        if (!isActive(cluster))
            continue;
        for (std::size_t f = cluster.firstFacet; f < cluster.endFacet; ++f) {
            int const wanted = m_patches[m_facets[f].patch].wanted;
            if (wanted == 0 || isKept[f])
                continue;
            Corners corners = m_facets[f].corners;
            if (wanted < 0)
                std::swap(corners[1], corners[2]);
            mesh.triangles.push_back(corners);
        }
    }
    settleRounding(mesh, firstNew, m_mesh.points.size(), progress);
    return mesh;
}
