// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/mesh/DisjointSets.h"
#include "host/mesh/ExactSigns.h"
#include "host/services/EdgeGroups.h"
#include "host/services/exact/DividedTriangles.h"
#include "host/services/repair/CrossingResolver.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace {

using Corners = MeshArrays::Corners;
using Point = MeshArrays::Point;
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

}  // namespace

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
