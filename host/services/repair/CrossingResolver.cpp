// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/CrossingResolver.h"

#include "host/mesh/DisjointSets.h"
#include "host/mesh/ExactSigns.h"
#include "host/services/EdgeGroups.h"
#include "host/services/VertexStars.h"
#include "host/services/exact/DividedTriangles.h"
#include "host/services/repair/RoundedRest.h"
#include "host/services/repair/SoupMending.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <tuple>

namespace {

using Point = MeshArrays::Point;
using Corners = MeshArrays::Corners;
using Vector = UVector3<double>;

Vector doubledArea(Point const& a, Point const& b, Point const& c)
{
    Vector const u(double(b.X()) - a.X(), double(b.Y()) - a.Y(), double(b.Z()) - a.Z());
    Vector const v(double(c.X()) - a.X(), double(c.Y()) - a.Y(), double(c.Z()) - a.Z());
    return u * v;
}

Vector doubledArea(MeshArrays const& mesh, std::uint32_t t)
{
    return doubledArea(mesh.point(t, 0), mesh.point(t, 1), mesh.point(t, 2));
}

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

/// One cluster divided along its curves, and what its patches are.
class CrossingResolver::Division
{
public:
    Division(CrossingResolver& resolver, std::uint32_t cluster, StageProgress& progress)
        : m_resolver(resolver),
          m_number(cluster),
          m_cluster(resolver.m_clusters[cluster]),
          m_soup(makeSoup()),
          m_divided(m_soup, progress),
          m_local(localFacets()),
          m_edges(m_local, progress)
    {}

    void run(WindingField const& field, StageProgress& progress)
    {
        numberPoints();
        findCoverage(progress);
        makePatches();
        std::vector<std::size_t> const seeds = largestFacets();
        for (std::uint32_t i = 0; i < seeds.size(); ++i) {
            progress.add(0);
            measure(m_firstPatch + i, seeds[i], field);
        }
    }

private:
    MeshArrays makeSoup()
    {
        MeshArrays soup;
        std::unordered_map<std::uint32_t, std::uint32_t> places;
        for (std::uint32_t const t : m_cluster.triangles) {
            Corners corners;
            for (int k = 0; k < 3; ++k) {
                std::uint32_t const vertex =
                    m_resolver.standInOf(m_resolver.m_mesh.triangles[t][k]);
                auto const [place, isNew] =
                    places.try_emplace(vertex, std::uint32_t(soup.points.size()));
                if (isNew) {
                    soup.points.push_back(m_resolver.m_mesh.points[vertex]);
                    m_numbers.push_back(vertex);
                }
                corners[k] = place->second;
            }
            soup.triangles.push_back(corners);
        }
        return soup;
    }

    MeshArrays localFacets() const
    {
        MeshArrays local;
        local.points = m_divided.points();
        for (auto const& facet : m_divided.facets())
            local.triangles.push_back(facet.corners);
        return local;
    }

    void numberPoints()
    {
        auto& made = m_resolver.m_made;
        for (std::size_t i = m_soup.points.size(); i < m_local.points.size(); ++i) {
            m_numbers.push_back(std::uint32_t(m_resolver.m_mesh.points.size() + made.size()));
            made.push_back(m_local.points[i]);
        }
    }

    /// Per triangle those in its plane that it meets.
    std::vector<std::vector<std::uint32_t>> coplanarPartners() const
    {
        std::vector<std::vector<std::uint32_t>> partners(m_soup.triangles.size());
        auto const rankOf = [&](std::uint32_t t) {
            return std::uint32_t(
                std::lower_bound(m_cluster.triangles.begin(), m_cluster.triangles.end(), t) -
                m_cluster.triangles.begin());
        };
        for (auto const& [first, second] : m_cluster.pairs) {
            std::uint32_t const a = rankOf(first), b = rankOf(second);
            if (!areCoplanar(a, b))
                continue;
            partners[a].push_back(b);
            partners[b].push_back(a);
        }
        return partners;
    }

    bool areCoplanar(std::uint32_t a, std::uint32_t b) const
    {
        for (int k = 0; k < 3; ++k)
            if (ExactSigns::orient3d(m_soup.point(a, 0), m_soup.point(a, 1), m_soup.point(a, 2),
                                     m_soup.point(b, k)) != 0)
                return false;
        return true;
    }

    /// Per facet the triangles that it stands for, its own first.
    void findCoverage(StageProgress& progress)
    {
        auto const partners = coplanarPartners();
        m_under.resize(m_local.triangles.size());
        for (std::size_t f = 0; f < m_under.size(); ++f) {
            std::uint32_t const own = m_divided.facets()[f].triangle;
            m_under[f].push_back(own);
            if (partners[own].empty())
                continue;
            progress.add(0);
            auto const others = m_divided.trianglesUnder(f, partners[own]);
            m_under[f].insert(m_under[f].end(), others.begin(), others.end());
        }
    }

    /// Whether two facets go on in each other: pieces of one triangle, or of neighbours at their
    /// common edge. Where they stand for other triangles, these may have more to either side.
    bool isInner(std::span<std::uint32_t const> edge) const
    {
        if (edge.size() != 2 ||
            EdgeGroups::start(m_local, edge[0]) != EdgeGroups::end(m_local, edge[1]))
            return false;
        auto const &a = m_under[edge[0] / 3], &b = m_under[edge[1] / 3];
        return a == b || (a.size() == 1 && b.size() == 1 && haveCommonEdge(a[0], b[0]));
    }

    bool haveCommonEdge(std::uint32_t a, std::uint32_t b) const
    {
        int shared = 0;
        for (std::uint32_t const corner : m_soup.triangles[a])
            for (std::uint32_t const other : m_soup.triangles[b])
                shared += corner == other;
        return shared == 2;
    }

    void makePatches()
    {
        DisjointSets sets(m_local.triangles.size());
        for (std::size_t i = 0; i < m_edges.size(); ++i)
            if (isInner(m_edges[i]))
                sets.unite(m_edges[i][0] / 3, m_edges[i][1] / 3);
        m_firstPatch = std::uint32_t(m_resolver.m_patches.size());
        std::vector<std::uint32_t> patchOf(m_local.triangles.size(), none);
        m_cluster.firstFacet = m_resolver.m_facets.size();
        for (std::uint32_t f = 0; f < m_local.triangles.size(); ++f) {
            std::uint32_t& patch = patchOf[sets.root(f)];
            if (patch == none) {
                patch = std::uint32_t(m_resolver.m_patches.size());
                m_resolver.m_patches.push_back({m_number, 1, 1, {}});
            }
            Corners corners = m_local.triangles[f];
            for (std::uint32_t& corner : corners)
                corner = m_numbers[corner];
            m_resolver.m_facets.push_back(
                {corners, m_cluster.triangles[m_divided.facets()[f].triangle], patch});
        }
        m_cluster.endFacet = m_resolver.m_facets.size();
        for (std::size_t i = 0; i < m_edges.size(); ++i)
            if (m_edges[i].size() == 1)
                addRim(m_edges[i][0]);
    }

    /// An edge of a facet that is a whole edge of its triangle, and at which no other facet is.
    void addRim(std::uint32_t halfEdge)
    {
        std::uint32_t const from = EdgeGroups::start(m_local, halfEdge);
        std::uint32_t const to = EdgeGroups::end(m_local, halfEdge);
        std::uint32_t const triangle = m_divided.facets()[halfEdge / 3].triangle;
        Corners const& corners = m_soup.triangles[triangle];
        for (std::uint32_t k = 0; k < 3; ++k)
            if (corners[k] == from && corners[(k + 1) % 3] == to) {
                std::uint32_t const whole = 3 * m_cluster.triangles[triangle] + k;
                std::uint32_t const patch =
                    m_resolver.m_facets[m_cluster.firstFacet + halfEdge / 3].patch;
                m_resolver.m_patches[patch].rim.push_back(whole);
                m_resolver.m_patchAt[whole] = patch;
            }
    }

    /// How the mesh winds on both sides of a patch decides how often its facets are wanted.
    void measure(std::uint32_t patch, std::size_t seed, WindingField const& field)
    {
        std::vector<std::uint32_t> under = m_under[seed];
        Vector const ours = doubledArea(m_soup, m_divided.facets()[seed].triangle);
        int present = 0;
        for (std::uint32_t& triangle : under) {
            present += (doubledArea(m_soup, triangle) | ours) > 0 ? 1 : -1;
            triangle = m_cluster.triangles[triangle];
        }
        double const between = field.at(m_divided.middle(seed), under);
        double const front = between - present / 2.0, back = between + present / 2.0;
        constexpr double mostDoubt = 0.2;
        if (std::abs(front - std::round(front)) > mostDoubt)
            m_cluster.fault = Fault::open;
        else if (std::lround(std::min(front, back)) < 0 && isAnyInverted(under))
            m_cluster.fault = Fault::insideOut;
        // Where several lie on each other, what goes on beside them does not lie with them.
        if (under.size() > 1)
            dropRim(patch);
        m_resolver.m_patches[patch].present = present;
        m_resolver.m_patches[patch].wanted = (std::lround(back) > 0) - (std::lround(front) > 0);
    }

    void dropRim(std::uint32_t patch)
    {
        for (std::uint32_t const halfEdge : m_resolver.m_patches[patch].rim)
            m_resolver.m_patchAt.erase(halfEdge);
        m_resolver.m_patches[patch].rim.clear();
    }

    /// A pocket that is turned inside out may go; not a whole shell.
    bool isAnyInverted(std::vector<std::uint32_t> const& triangles) const
    {
        return std::any_of(triangles.begin(), triangles.end(),
                           [this](std::uint32_t t) { return m_resolver.m_isInverted[t] != 0; });
    }

    /// Per patch its largest facet: the larger, the farther is its middle from all others.
    std::vector<std::size_t> largestFacets() const
    {
        std::vector<std::size_t> largest(m_resolver.m_patches.size() - m_firstPatch, 0);
        std::vector<double> most(largest.size(), -1);
        for (std::size_t f = 0; f < m_local.triangles.size(); ++f) {
            std::uint32_t const patch =
                m_resolver.m_facets[m_cluster.firstFacet + f].patch - m_firstPatch;
            Vector const area = doubledArea(m_local, std::uint32_t(f));
            if (double const size = area | area; size > most[patch]) {
                most[patch] = size;
                largest[patch] = f;
            }
        }
        return largest;
    }

    CrossingResolver& m_resolver;
    std::uint32_t m_number;
    Cluster& m_cluster;
    /// Per local point: its number in the whole.
    std::vector<std::uint32_t> m_numbers;
    MeshArrays m_soup;
    Exact::DividedTriangles m_divided;
    MeshArrays m_local;
    EdgeGroups m_edges;
    std::vector<std::vector<std::uint32_t>> m_under;
    std::uint32_t m_firstPatch = 0;
};

void CrossingResolver::divide(std::uint32_t cluster, WindingField const& field,
                              StageProgress& progress)
{
    Division(*this, cluster, progress).run(field, progress);
}

/// Finds the triangles that go on beside facets which are not wanted.
class CrossingResolver::Flood
{
public:
    Flood(CrossingResolver& resolver, StageProgress& progress)
        : m_resolver(resolver),
          m_stars(resolver.m_mesh, progress),
          m_progress(progress),
          m_isPatchReached(resolver.m_patches.size(), 0),
          m_isReached(resolver.m_mesh.triangles.size(), 0)
    {}

    void run()
    {
        for (std::uint32_t patch = 0; patch < m_resolver.m_patches.size(); ++patch) {
            if (!isUnwanted(patch) || m_isPatchReached[patch])
                continue;
            m_origin = m_resolver.m_patches[patch].cluster;
            reach(patch);
            for (; !m_open.empty();) {
                if (++m_steps % 1024 == 0)
                    m_progress.add(0);
                std::uint32_t const halfEdge = m_open.back();
                m_open.pop_back();
                cross(halfEdge);
            }
        }
    }

private:
    bool isUnwanted(std::uint32_t patch) const { return m_resolver.m_patches[patch].wanted == 0; }

    void reach(std::uint32_t patch)
    {
        Patch const& p = m_resolver.m_patches[patch];
        m_resolver.m_links.emplace_back(m_origin, p.cluster);
        if (m_isPatchReached[patch])
            return;
        m_isPatchReached[patch] = 1;
        // What is buried on one side of an edge and wanted on the other does not fit together.
        if (!isUnwanted(patch) && m_resolver.m_clusters[p.cluster].fault == Fault::none)
            m_resolver.m_clusters[p.cluster].fault = Fault::gaps;
        if (isUnwanted(patch))
            m_open.insert(m_open.end(), p.rim.begin(), p.rim.end());
    }

    void cross(std::uint32_t halfEdge)
    {
        std::uint32_t const other = partnerOf(halfEdge);
        if (other == none)
            return;
        if (m_resolver.m_clusterOf.contains(other / 3)) {
            if (auto const found = m_resolver.m_patchAt.find(other);
                found != m_resolver.m_patchAt.end())
                reach(found->second);
            return;
        }
        std::uint32_t const triangle = other / 3;
        if (m_isReached[triangle])
            return;
        m_isReached[triangle] = 1;
        m_resolver.m_buried.emplace_back(triangle, m_origin);
        for (std::uint32_t k = 1; k < 3; ++k)
            m_open.push_back(3 * triangle + (other + k) % 3);
    }

    /// The half-edge across an edge at which exactly two triangles are that agree, or none.
    std::uint32_t partnerOf(std::uint32_t halfEdge) const
    {
        MeshArrays const& mesh = m_resolver.m_mesh;
        std::uint32_t const from = EdgeGroups::start(mesh, halfEdge);
        std::uint32_t const to = EdgeGroups::end(mesh, halfEdge);
        std::uint32_t partner = none;
        for (std::uint32_t const corner : m_stars.corners(from)) {
            if (corner / 3 == halfEdge / 3)
                continue;
            std::uint32_t const before = 3 * (corner / 3) + (corner + 2) % 3;
            if (EdgeGroups::end(mesh, corner) == to)
                return none;
            if (EdgeGroups::start(mesh, before) != to)
                continue;
            if (partner != none)
                return none;
            partner = before;
        }
        return partner;
    }

    CrossingResolver& m_resolver;
    VertexStars m_stars;
    StageProgress& m_progress;
    std::vector<std::uint8_t> m_isPatchReached;
    std::vector<std::uint8_t> m_isReached;
    std::vector<std::uint32_t> m_open;
    std::uint32_t m_origin = 0;
    std::size_t m_steps = 0;
};

void CrossingResolver::flood(StageProgress& progress)
{
    bool const isNeeded = std::any_of(m_patches.begin(), m_patches.end(), [](Patch const& patch) {
        return patch.wanted == 0 && !patch.rim.empty();
    });
    if (isNeeded)
        Flood(*this, progress).run();
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
                                      std::size_t& firstNew, StageProgress& progress) const
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
    firstNew = mesh.triangles.size();
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
