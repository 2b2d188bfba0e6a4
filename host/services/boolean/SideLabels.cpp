// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/SideLabels.h"

#include "host/mesh/DisjointSets.h"

#include <algorithm>

namespace {

using Corners = MeshArrays::Corners;

/// Vertices of one operand, and the regions of its divided triangles, that lie together on one side
/// of the other operand.
class Groups
{
public:
    Groups(OperandSoup const& soup, CurveNetwork const& network, Operand operand)
        : m_soup(soup),
          m_network(network),
          m_firstPoint(operand == Operand::first ? 0 : soup.firstPointOfSecond),
          m_pointCount((operand == Operand::first ? soup.firstPointOfSecond : soup.pointCount()) -
                       m_firstPoint),
          m_firstTriangle(operand == Operand::first ? 0 : soup.firstTriangleOfSecond),
          m_endTriangle(operand == Operand::first ? soup.firstTriangleOfSecond
                                                  : soup.triangleCount()),
          m_sets(m_pointCount + regionCount())
    {
        for (std::uint32_t t = m_firstTriangle; t < m_endTriangle; ++t)
            if (network.faceOf(t) == CurveNetwork::none)
                joinTriangle(t);
            else
                joinFace(network.faceOf(t));
        joinAcrossSides();
    }

    std::uint32_t pointCount() const { return m_pointCount; }
    std::uint32_t regionCount() const
    {
        auto const& ends = m_network.facets().ends;
        return ends.empty() ? 0 : ends.back().regions;
    }
    std::uint32_t size() const { return m_pointCount + regionCount(); }

    std::uint32_t ofVertex(std::uint32_t local) { return m_sets.root(local); }
    std::uint32_t ofRegion(std::uint32_t region) { return m_sets.root(m_pointCount + region); }
    bool isOnCurve(std::uint32_t local) const
    {
        return m_network.points().isOnCurve(m_firstPoint + local);
    }
    std::uint32_t globalOf(std::uint32_t local) const { return m_firstPoint + local; }

    /// Calls `visit(region, facet)` for the facets of this operand's faces.
    template <typename Visit>
    void forFacets(Visit const& visit) const
    {
        Facets const& facets = m_network.facets();
        std::uint32_t begin = 0;
        for (Facets::End const& face : facets.ends) {
            if (face.triangle >= m_firstTriangle && face.triangle < m_endTriangle)
                for (std::uint32_t f = begin; f < face.facets; ++f)
                    visit(facets.regions[f], facets.corners[f]);
            begin = face.facets;
        }
    }

private:
    void joinTriangle(std::uint32_t triangle)
    {
        Corners const& c = m_soup.corners(triangle);
        m_sets.unite(c[0] - m_firstPoint, c[1] - m_firstPoint);
        m_sets.unite(c[0] - m_firstPoint, c[2] - m_firstPoint);
    }

    void joinFace(std::uint32_t face)
    {
        Facets const& facets = m_network.facets();
        std::uint32_t const begin = face == 0 ? 0 : facets.ends[face - 1].facets;
        for (std::uint32_t f = begin; f < facets.ends[face].facets; ++f)
            for (std::uint32_t const corner : facets.corners[f])
                if (!m_network.points().isOnCurve(corner))
                    m_sets.unite(corner - m_firstPoint, m_pointCount + facets.regions[f]);
    }

    /// Joins regions of neighbouring triangles at edges between two points of the curves along
    /// which no curve runs: no vertex may be there to join them.
    void joinAcrossSides()
    {
        struct Side
        {
            FaceSegment edge;
            std::uint32_t region;
        };
        std::vector<Side> sides;
        Facets const& facets = m_network.facets();
        std::uint32_t begin = 0;
        for (Facets::End const& face : facets.ends) {
            if (face.triangle >= m_firstTriangle && face.triangle < m_endTriangle)
                for (std::uint32_t b = begin; b < face.borders; ++b) {
                    Facets::Border const& border = facets.borders[b];
                    if (border.isSide && m_network.points().isOnCurve(border.from) &&
                        m_network.points().isOnCurve(border.to))
                        sides.push_back(
                            {{std::min(border.from, border.to), std::max(border.from, border.to)},
                             border.region});
                }
            begin = face.borders;
        }
        if (sides.empty())
            return;
        std::vector<FaceSegment> curves;
        for (CurveSegment const& s : m_network.segments())
            if (s.isAlongEdge())
                curves.push_back({std::min(s.from, s.to), std::max(s.from, s.to)});
        std::sort(curves.begin(), curves.end());
        std::stable_sort(sides.begin(), sides.end(),
                         [](Side const& a, Side const& b) { return a.edge < b.edge; });
        for (std::size_t i = 1; i < sides.size(); ++i)
            if (sides[i].edge == sides[i - 1].edge &&
                !std::binary_search(curves.begin(), curves.end(), sides[i].edge))
                m_sets.unite(m_pointCount + sides[i].region, m_pointCount + sides[i - 1].region);
    }

    OperandSoup const& m_soup;
    CurveNetwork const& m_network;
    std::uint32_t m_firstPoint;
    std::uint32_t m_pointCount;
    std::uint32_t m_firstTriangle;
    std::uint32_t m_endTriangle;
    DisjointSets m_sets;
};

/// Points that stand for groups about which no curve says anything.
struct Strays
{
    std::vector<std::uint32_t> groups;
    WindingNumbers::Points points;
};

UPoint3<float> centreOf(CurvePoints const& points, Corners const& facet)
{
    double sum[3] = {};
    for (std::uint32_t const corner : facet) {
        CurvePoints::Estimate const e = points.estimate(corner);
        for (std::size_t k = 0; k < 3; ++k)
            sum[k] += e.place[k];
    }
    return {float(sum[0] / 3), float(sum[1] / 3), float(sum[2] / 3)};
}

/// isOpen  per group
template <typename IsOpen>
Strays findStrays(Groups& groups, OperandSoup const& soup, CurveNetwork const& network,
                  IsOpen const& isOpen)
{
    Strays strays;
    std::vector<bool> isListed(groups.size(), false);
    auto const list = [&](std::uint32_t group, UPoint3<float> const& point) {
        if (isListed[group] || !isOpen(group))
            return;
        isListed[group] = true;
        strays.groups.push_back(group);
        strays.points.push_back(point);
    };
    for (std::uint32_t v = 0; v < groups.pointCount(); ++v)
        if (!groups.isOnCurve(v))
            list(groups.ofVertex(v), soup.mesh.points[groups.globalOf(v)]);
    groups.forFacets([&](std::uint32_t region, Corners const& facet) {
        std::uint32_t const group = groups.ofRegion(region);
        if (!isListed[group])
            list(group, centreOf(network.points(), facet));
    });
    return strays;
}

/// Labels of the first operand: in or out of the second.
class FirstLabels
{
public:
    FirstLabels(OperandSoup const& soup, CurveNetwork const& network)
        : m_soup(soup), m_network(network), m_groups(soup, network, Operand::first)
    {}

    bool run(std::vector<SideSeed> const& seeds, std::vector<std::int8_t> const& known,
             WindingNumbers const& winding, SideLabels& labels)
    {
        m_sides.assign(m_groups.size(), {});
        for (SideSeed const& seed : seeds) {
            std::uint32_t const region = m_network.regionLeftOf(seed.triangle, seed.from, seed.to);
            if (region == CurveNetwork::none ||
                !set(m_groups.ofRegion(region), {seed.front > 0, seed.behind > 0}))
                return false;
        }
        for (std::uint32_t v = 0; v < m_groups.pointCount() && !known.empty(); ++v)
            if (known[v] != SideLabels::unknown && !m_groups.isOnCurve(v) &&
                !set(m_groups.ofVertex(v), {known[v], known[v]}))
                return false;
        askStrays(winding);
        write(labels);
        return true;
    }

private:
    bool set(std::uint32_t group, SideLabels::Sides const& sides)
    {
        if (m_sides[group].front != SideLabels::unknown)
            return m_sides[group] == sides;
        m_sides[group] = sides;
        return true;
    }

    void askStrays(WindingNumbers const& winding)
    {
        Strays const strays = findStrays(m_groups, m_soup, m_network, [&](std::uint32_t group) {
            return m_sides[group].front == SideLabels::unknown;
        });
        if (strays.groups.empty())
            return;
        std::vector<int> const numbers = winding.ofSecond(strays.points);
        for (std::size_t i = 0; i < numbers.size(); ++i)
            m_sides[strays.groups[i]] = {numbers[i] > 0, numbers[i] > 0};
    }

    void write(SideLabels& labels)
    {
        labels.ofFirst.assign(m_groups.regionCount(), {});
        m_groups.forFacets([&](std::uint32_t region, Corners const&) {
            labels.ofFirst[region] = m_sides[m_groups.ofRegion(region)];
        });
        labels.ofFirstVertices.resize(m_groups.pointCount());
        for (std::uint32_t v = 0; v < m_groups.pointCount(); ++v)
            labels.ofFirstVertices[v] =
                m_groups.isOnCurve(v) ? SideLabels::unknown : m_sides[m_groups.ofVertex(v)].front;
    }

    OperandSoup const& m_soup;
    CurveNetwork const& m_network;
    Groups m_groups;
    std::vector<SideLabels::Sides> m_sides;
};

/// Labels of the second operand: winding numbers of the first, which may be any where that one
/// overlaps itself.
class SecondLabels
{
public:
    SecondLabels(OperandSoup const& soup, CurveNetwork const& network)
        : m_soup(soup), m_network(network), m_groups(soup, network, Operand::second)
    {}

    bool run(SideSeeds const& seeds, WindingNumbers const& winding, SideLabels& labels)
    {
        m_isOn.assign(m_groups.size(), false);
        if (!relate(seeds) || !count())
            return false;
        askStrays(winding);
        labels.isOnFirst.assign(m_groups.regionCount(), false);
        labels.ofSecond.assign(m_groups.regionCount(), 0);
        m_groups.forFacets([&](std::uint32_t region, Corners const&) {
            labels.ofSecond[region] = m_numbers[m_groups.ofRegion(region)];
            labels.isOnFirst[region] = m_isOn[m_groups.ofRegion(region)];
        });
        labels.ofSecondVertices.resize(m_groups.pointCount());
        for (std::uint32_t v = 0; v < m_groups.pointCount(); ++v)
            labels.ofSecondVertices[v] = m_numbers[m_groups.ofVertex(v)];
        return true;
    }

private:
    /// The winding number of one group is that of another plus a difference.
    struct Relation
    {
        std::uint32_t from;
        std::uint32_t to;
        int difference;
        bool operator<(Relation const& o) const { return from < o.from; }
    };

    bool relate(SideSeeds const& seeds)
    {
        std::uint32_t begin = 0;
        for (std::uint32_t const end : seeds.endsOfSecond) {
            std::uint32_t reference = CurveNetwork::none;
            int number = 0;
            for (std::uint32_t i = begin; i < end; ++i) {
                SideSeed const& seed = seeds.ofSecond[i];
                std::uint32_t const region =
                    m_network.regionLeftOf(seed.triangle, seed.from, seed.to);
                if (region == CurveNetwork::none)
                    return false;
                std::uint32_t const group = m_groups.ofRegion(region);
                if (seed.front != seed.behind) {
                    m_isOn[group] = true;
                    continue;
                }
                if (reference == CurveNetwork::none) {
                    reference = group;
                    number = seed.front;
                }
                m_floors.emplace_back(group, seed.front);
                m_relations.push_back({reference, group, seed.front - number});
                m_relations.push_back({group, reference, number - seed.front});
            }
            begin = end;
        }
        std::stable_sort(m_relations.begin(), m_relations.end());
        return true;
    }

    /// Counts from group to group. What hangs together is as low as its floors allow.
    bool count()
    {
        m_numbers.assign(m_groups.size(), unknown);
        std::vector<std::uint32_t> components(m_groups.size(), 0);
        std::vector<std::uint32_t> members;
        std::vector<int> lifts;
        for (Relation const& seed : m_relations) {
            if (m_numbers[seed.from] != unknown)
                continue;
            m_numbers[seed.from] = 0;
            members.assign(1, seed.from);
            for (std::size_t i = 0; i < members.size(); ++i) {
                components[members[i]] = std::uint32_t(lifts.size());
                if (!follow(members[i], members))
                    return false;
            }
            lifts.push_back(unknown);
        }
        for (auto const& [group, floor] : m_floors) {
            int& lift = lifts[components[group]];
            lift = std::max(lift, floor - m_numbers[group]);
        }
        for (std::uint32_t g = 0; g < m_numbers.size(); ++g)
            if (m_numbers[g] != unknown)
                m_numbers[g] += lifts[components[g]];
        return true;
    }

    bool follow(std::uint32_t group, std::vector<std::uint32_t>& members)
    {
        auto relation =
            std::lower_bound(m_relations.begin(), m_relations.end(), Relation{group, 0, 0});
        for (; relation != m_relations.end() && relation->from == group; ++relation) {
            int const number = m_numbers[group] + relation->difference;
            int& known = m_numbers[relation->to];
            if (known != unknown && known != number)
                return false;
            if (known == unknown)
                members.push_back(relation->to);
            known = number;
        }
        return true;
    }

    void askStrays(WindingNumbers const& winding)
    {
        Strays const strays = findStrays(m_groups, m_soup, m_network, [&](std::uint32_t group) {
            return m_numbers[group] == unknown && !m_isOn[group];
        });
        if (strays.groups.empty())
            return;
        std::vector<int> const numbers = winding.ofFirst(strays.points);
        for (std::size_t i = 0; i < numbers.size(); ++i)
            m_numbers[strays.groups[i]] = numbers[i];
    }

    static constexpr int unknown = -0x7fffffff;

    OperandSoup const& m_soup;
    CurveNetwork const& m_network;
    Groups m_groups;
    std::vector<Relation> m_relations;
    /// The least winding number of a group.
    std::vector<std::pair<std::uint32_t, int>> m_floors;
    std::vector<bool> m_isOn;
    std::vector<int> m_numbers;
};

}  // namespace

bool labelSides(OperandSoup const& soup, CurveNetwork const& network, SideSeeds const& seeds,
                std::vector<std::int8_t> const& known, WindingNumbers const& winding,
                SideLabels& labels)
{
    return FirstLabels(soup, network).run(seeds.ofFirst, known, winding, labels) &&
           SecondLabels(soup, network).run(seeds, winding, labels);
}
