// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/FlawPlaces.h"

#include "host/mesh/DisjointSets.h"
#include "host/services/FlawSurvey.h"
#include "host/services/TrianglePair.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <unordered_map>
#include <utility>

namespace Repair {

namespace {

using Edge = std::pair<std::uint32_t, std::uint32_t>;

/// Of the triangles that cross others; so many lie in one plane across x within a fraction of a second.
constexpr std::size_t mostInvolved = 20000;

/// Counts steps of a few microseconds at most, and polls now and then.
class Steps
{
public:
    explicit Steps(std::function<void()> const& poll) : m_poll(poll) {}

    void count()
    {
        constexpr std::size_t between = 1 << 13;
        if (++m_count % between == 0 && m_poll)
            m_poll();
    }

    /// By keys that all differ, so that there is one order.
    template <typename Item, typename Key>
    void sort(std::vector<Item>& items, Key const& key)
    {
        std::ranges::sort(items, [&](Item const& a, Item const& b) {
            count();
            return key(a) < key(b);
        });
    }

private:
    std::function<void()> const& m_poll;
    std::size_t m_count = 0;
};

bool isFinite(UPoint3<float> const& p)
{
    return std::isfinite(p.X()) && std::isfinite(p.Y()) && std::isfinite(p.Z());
}

/// Collects flaws by the set that they belong to; sets come in the order of their first flaws.
class Places
{
public:
    Places(FlawKind kind, std::size_t most) : m_kind(kind), m_most(most) {}

    /// Null once there are enough others.
    FlawPlace* of(std::uint32_t set)
    {
        auto const [place, isNew] = m_indices.emplace(set, m_places.size());
        if (isNew && m_places.size() < m_most) {
            m_places.emplace_back();
            m_places.back().kind = m_kind;
        }
        return place->second < m_places.size() ? &m_places[place->second] : nullptr;
    }

    void moveTo(std::vector<FlawPlace>& all)
    {
        std::move(m_places.begin(), m_places.end(), std::back_inserter(all));
    }

private:
    FlawKind m_kind;
    std::size_t m_most;
    std::unordered_map<std::uint32_t, std::size_t> m_indices;
    std::vector<FlawPlace> m_places;
};

void addLine(FlawPlace& place, UPoint3<float> const& a, UPoint3<float> const& b)
{
    if (place.lines.empty())
        place.point = (a + b) * 0.5f;
    place.lines.push_back(a);
    place.lines.push_back(b);
}

void addSides(FlawPlace& place, MeshArrays const& mesh, std::size_t triangle)
{
    for (int corner = 0; corner < 3; ++corner)
        addLine(place, mesh.point(triangle, corner), mesh.point(triangle, (corner + 1) % 3));
    place.point =
        (mesh.point(triangle, 0) + mesh.point(triangle, 1) + mesh.point(triangle, 2)) * (1.0f / 3);
}

bool hasNumbers(MeshArrays const& mesh, std::size_t triangle)
{
    return isFinite(mesh.point(triangle, 0)) && isFinite(mesh.point(triangle, 1)) &&
           isFinite(mesh.point(triangle, 2));
}

/// Edges of one kind, joined where they share a vertex.
void addEdges(MeshArrays const& mesh, std::vector<Edge> const& edges, FlawKind kind,
              std::size_t most, std::vector<FlawPlace>& all, Steps& steps)
{
    DisjointSets sets(mesh.points.size());
    for (auto const& [a, b] : edges) {
        steps.count();
        sets.unite(a, b);
    }
    Places places(kind, most);
    for (auto const& [a, b] : edges) {
        steps.count();
        if (!isFinite(mesh.points[a]) || !isFinite(mesh.points[b]))
            continue;
        if (FlawPlace* const place = places.of(sets.root(a))) {
            ++place->count;
            addLine(*place, mesh.points[a], mesh.points[b]);
        }
    }
    places.moveTo(all);
}

/// The edges that do not join two triangles of one orientation.
class EdgeLists
{
public:
    EdgeLists(MeshArrays const& mesh, Steps& steps)
    {
        struct Side
        {
            Edge edge;
            std::uint32_t triangle;
            bool isForwards;
        };
        std::vector<Side> sides;
        sides.reserve(3 * mesh.triangles.size());
        for (std::uint32_t t = 0; t < mesh.triangles.size(); ++t) {
            steps.count();
            if (mesh.isCollapsed(t))
                continue;
            for (std::size_t corner = 0; corner < 3; ++corner) {
                std::uint32_t const a = mesh.triangles[t][corner];
                std::uint32_t const b = mesh.triangles[t][(corner + 1) % 3];
                sides.push_back({std::minmax(a, b), t, a < b});
            }
        }
        steps.sort(sides, [](Side const& s) { return std::pair(s.edge, s.triangle); });
        for (std::size_t i = 0; i < sides.size();) {
            steps.count();
            std::size_t end = i + 1;
            std::size_t forwards = sides[i].isForwards;
            for (; end < sides.size() && sides[end].edge == sides[i].edge; ++end)
                forwards += sides[end].isForwards;
            if (end - i == 1)
                open.push_back(sides[i].edge);
            else if (end - i > 2)
                crowded.push_back(sides[i].edge);
            else if (forwards != 1)
                inconsistent.push_back(sides[i].edge);
            i = end;
        }
    }

    std::vector<Edge> open, crowded, inconsistent;
};

void addTriangles(MeshArrays const& mesh, std::vector<std::uint32_t> const& triangles,
                  FlawKind kind, std::size_t most, std::vector<FlawPlace>& all, Steps& steps)
{
    Places places(kind, most);
    for (std::uint32_t const t : triangles) {
        steps.count();
        FlawPlace* const place = hasNumbers(mesh, t) ? places.of(t) : nullptr;
        if (!place)
            continue;
        place->count = 1;
        addSides(*place, mesh, t);
    }
    places.moveTo(all);
}

std::vector<std::uint32_t> duplicates(MeshArrays const& mesh, Steps& steps)
{
    std::vector<std::pair<MeshArrays::Corners, std::uint32_t>> sorted;
    for (std::uint32_t t = 0; t < mesh.triangles.size(); ++t) {
        steps.count();
        MeshArrays::Corners corners = mesh.triangles[t];
        std::ranges::sort(corners);
        if (!mesh.isCollapsed(t))
            sorted.emplace_back(corners, t);
    }
    steps.sort(sorted, [](auto const& item) { return item; });
    std::vector<std::uint32_t> found;
    for (std::size_t i = 1; i < sorted.size(); ++i)
        if (sorted[i].first == sorted[i - 1].first)
            found.push_back(sorted[i].second);
    steps.sort(found, [](std::uint32_t t) { return t; });
    return found;
}

UBox3<float> boxOf(MeshArrays const& mesh, std::size_t triangle)
{
    UBox3<float> box;
    for (int corner = 0; corner < 3; ++corner)
        box.Add(mesh.point(triangle, corner));
    return box;
}

/// The pairs among triangles that meet: a sweep along x.
std::vector<Edge> meetingPairs(MeshArrays const& mesh, std::vector<std::uint32_t> triangles,
                               Steps& steps)
{
    std::vector<std::pair<UBox3<float>, std::uint32_t>> boxes;
    for (std::uint32_t const t : triangles)
        boxes.emplace_back(boxOf(mesh, t), t);
    steps.sort(boxes, [](auto const& b) { return std::pair(b.first.MinX(), b.second); });
    std::vector<Edge> pairs;
    for (std::size_t i = 0; i < boxes.size(); ++i)
        for (std::size_t k = i + 1;
             k < boxes.size() && boxes[k].first.MinX() <= boxes[i].first.MaxX(); ++k) {
            steps.count();
            UBox3<float> const &a = boxes[i].first, &b = boxes[k].first;
            if (a.MinY() <= b.MaxY() && b.MinY() <= a.MaxY() && a.MinZ() <= b.MaxZ() &&
                b.MinZ() <= a.MaxZ() && doTrianglesMeet(mesh, boxes[i].second, boxes[k].second))
                pairs.push_back(std::minmax(boxes[i].second, boxes[k].second));
        }
    steps.sort(pairs, [](Edge const& pair) { return pair; });
    return pairs;
}

/// Pairs are at one place where their triangles share a vertex, or are the same.
void addCrossings(MeshArrays const& mesh, std::vector<std::uint8_t> const& isInvolved,
                  std::size_t most, std::vector<FlawPlace>& all, Steps& steps)
{
    std::vector<std::uint32_t> involved;
    for (std::uint32_t t = 0; t < isInvolved.size(); ++t)
        if (isInvolved[t] && hasNumbers(mesh, t) && involved.size() < mostInvolved)
            involved.push_back(t);
    std::vector<Edge> const pairs = meetingPairs(mesh, involved, steps);
    DisjointSets sets(mesh.points.size());
    for (auto const& [a, b] : pairs) {
        steps.count();
        for (std::uint32_t const t : {a, b})
            for (std::uint32_t const vertex : mesh.triangles[t])
                sets.unite(mesh.triangles[a][0], vertex);
    }
    Places places(FlawKind::Crossing, most);
    std::vector<std::uint8_t> isDrawn(mesh.triangles.size());
    for (auto const& [a, b] : pairs) {
        steps.count();
        FlawPlace* const place = places.of(sets.root(mesh.triangles[a][0]));
        if (!place)
            continue;
        ++place->count;
        for (std::uint32_t const t : {a, b})
            if (!std::exchange(isDrawn[t], 1))
                addSides(*place, mesh, t);
    }
    places.moveTo(all);
}

void addBox(FlawPlace& place, UBox3<float> const& box)
{
    auto const corner = [&](int bits) {
        return UPoint3<float>(bits & 1 ? box.MaxX() : box.MinX(),
                              bits & 2 ? box.MaxY() : box.MinY(),
                              bits & 4 ? box.MaxZ() : box.MinZ());
    };
    for (int bits = 0; bits < 8; ++bits)
        for (int const axis : {1, 2, 4})
            if (!(bits & axis))
                addLine(place, corner(bits), corner(bits | axis));
}

void addTurnedShells(MeshArrays const& mesh, MeshErrors const& errors, std::size_t most,
                     std::vector<FlawPlace>& all, Steps& steps)
{
    std::map<std::uint32_t, std::pair<UBox3<float>, std::size_t>> shells;
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
        steps.count();
        std::uint32_t const shell = errors.topology.shellOf[t];
        if (!errors.isMisoriented[shell])
            continue;
        auto& [box, first] = shells.emplace(shell, std::pair(UBox3<float>(), t)).first->second;
        for (int corner = 0; corner < 3; ++corner)
            box.Add(mesh.point(t, corner));
    }
    for (auto const& [shell, found] : shells) {
        if (most-- == 0)
            return;
        FlawPlace place;
        place.kind = FlawKind::TurnedShell;
        place.count = 1;
        addBox(place, found.first);
        place.point = (mesh.point(found.second, 0) + mesh.point(found.second, 1) +
                       mesh.point(found.second, 2)) *
                      (1.0f / 3);
        all.push_back(std::move(place));
    }
}

}  // namespace

std::vector<FlawPlace> placesOf(FlawSurvey const& survey, std::size_t most,
                                std::function<void()> const& poll)
{
    Steps steps(poll);
    MeshArrays const& mesh = survey.mesh;
    MeshErrors const& errors = survey.errors;
    EvaluateErrors::Counts const& counts = errors.counts;
    std::vector<FlawPlace> all;
    if (counts.borderEdges + counts.nonManifoldEdges + counts.inconsistentEdges > 0) {
        EdgeLists const edges(mesh, steps);
        addEdges(mesh, edges.open, FlawKind::OpenEdges, most, all, steps);
        addEdges(mesh, edges.crowded, FlawKind::CrowdedEdges, most, all, steps);
        addEdges(mesh, edges.inconsistent, FlawKind::InconsistentEdges, most, all, steps);
    }
    if (counts.degenerateTriangles > 0) {
        std::vector<std::uint32_t> flat;
        for (std::uint32_t t = 0; t < mesh.triangles.size(); ++t)
            if (errors.topology.isDegenerate[t])
                flat.push_back(t);
        addTriangles(mesh, flat, FlawKind::DegenerateTriangle, most, all, steps);
    }
    if (counts.duplicateTriangles > 0)
        addTriangles(mesh, duplicates(mesh, steps), FlawKind::DuplicateTriangle, most, all, steps);
    if (counts.selfIntersections > 0)
        addCrossings(mesh, errors.intersections.isInvolved, most, all, steps);
    if (counts.misorientedShells > 0)
        addTurnedShells(mesh, errors, most, all, steps);
    return all;
}

}  // namespace Repair
