// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/SoupMending.h"

#include "host/services/EdgeGroups.h"
#include "host/services/ShellNesting.h"
#include "host/services/VertexStars.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <tuple>
#include <utility>

namespace {

using Corners = MeshArrays::Corners;
using Point = MeshArrays::Point;
constexpr std::uint32_t unused = 0xffffffff;

bool isFinite(Point const& p)
{
    return std::isfinite(p.X()) && std::isfinite(p.Y()) && std::isfinite(p.Z());
}

bool lessByPlace(Point const& a, Point const& b)
{
    return std::tuple(a.X(), a.Y(), a.Z()) < std::tuple(b.X(), b.Y(), b.Z());
}

std::vector<std::uint32_t> borderVertices(MeshArrays const& mesh, StageProgress& progress)
{
    std::vector<std::uint32_t> vertices;
    EdgeGroups const edges(mesh, progress);
    for (std::size_t i = 0; i < edges.size(); ++i)
        if (edges[i].size() == 1) {
            vertices.push_back(EdgeGroups::start(mesh, edges[i][0]));
            vertices.push_back(EdgeGroups::end(mesh, edges[i][0]));
        }
    std::sort(vertices.begin(), vertices.end());
    vertices.erase(std::unique(vertices.begin(), vertices.end()), vertices.end());
    return vertices;
}

Corners inOrder(Corners corners)
{
    std::sort(corners.begin(), corners.end());
    return corners;
}

/// Whether the corners run round in ascending order.
bool isAscending(Corners const& t)
{
    return (t[0] < t[1]) + (t[1] < t[2]) + (t[2] < t[0]) == 2;
}

/// Triangles on the same three vertices, and how the surface around them stands.
struct Duplicates
{
    std::span<std::uint32_t const> triangles;
    /// Whether each of the three edges has exactly one other triangle.
    bool fillsGap;

    /// The one to keep, or `unused`.
    std::uint32_t kept(MeshArrays const& mesh) const
    {
        auto const ascending = [&](std::uint32_t t) { return isAscending(mesh.triangles[t]); };
        std::ptrdiff_t const up = std::count_if(triangles.begin(), triangles.end(), ascending);
        std::ptrdiff_t const down = std::ptrdiff_t(triangles.size()) - up;
        if (up == down)
            return fillsGap ? triangles.front() : unused;
        return *std::find_if(triangles.begin(), triangles.end(),
                             [&](std::uint32_t t) { return ascending(t) == (up > down); });
    }
};

/// The triangles that share their three vertices with others, those on the same vertices together.
std::vector<std::uint32_t> byDuplicates(MeshArrays const& mesh, StageProgress& progress)
{
    VertexStars const stars(mesh, progress);
    std::vector<std::pair<Corners, std::uint32_t>> atVertex;
    std::vector<std::uint32_t> order;
    for (std::uint32_t vertex = 0; vertex < stars.vertexCount(); ++vertex) {
        if (vertex % 4096 == 0)
            progress.add(0);
        atVertex.clear();
        for (std::uint32_t corner : stars.corners(vertex)) {
            Corners const corners = inOrder(mesh.triangles[corner / 3]);
            if (corners[0] == vertex)
                atVertex.emplace_back(corners, corner / 3);
        }
        std::sort(atVertex.begin(), atVertex.end());
        for (std::size_t i = 0; i < atVertex.size(); ++i)
            if ((i > 0 && atVertex[i].first == atVertex[i - 1].first) ||
                (i + 1 < atVertex.size() && atVertex[i].first == atVertex[i + 1].first))
                order.push_back(atVertex[i].second);
    }
    return order;
}

/// Per half-edge: the number of triangles at its edge.
std::vector<std::uint32_t> edgeUses(MeshArrays const& mesh, StageProgress& progress)
{
    std::vector<std::uint32_t> uses(3 * mesh.triangles.size(), 0);
    EdgeGroups const edges(mesh, progress);
    for (std::size_t i = 0; i < edges.size(); ++i)
        for (std::uint32_t halfEdge : edges[i])
            uses[halfEdge] = std::uint32_t(edges[i].size());
    return uses;
}

}  // namespace

namespace {

/// Removes triangles, and tells a corner of each.
FlawPlaces removeWithPlaces(MeshArrays& mesh, std::vector<std::uint8_t> const& isRemoved)
{
    FlawPlaces places;
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t)
        if (isRemoved[t])
            places.push_back(mesh.point(t, 0));
    removeTriangles(mesh, isRemoved);
    return places;
}

}  // namespace

bool removeTriangles(MeshArrays& mesh, std::vector<std::uint8_t> const& isRemoved)
{
    std::size_t left = 0;
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t)
        if (!isRemoved[t])
            mesh.triangles[left++] = mesh.triangles[t];
    bool const hasRemoved = left != mesh.triangles.size();
    mesh.triangles.resize(left);
    return hasRemoved;
}

FlawPlaces removeBrokenTriangles(MeshArrays& mesh)
{
    std::vector<std::uint8_t> isRemoved(mesh.triangles.size());
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t)
        isRemoved[t] = mesh.isCollapsed(t) || !isFinite(mesh.point(t, 0)) ||
                       !isFinite(mesh.point(t, 1)) || !isFinite(mesh.point(t, 2));
    return removeWithPlaces(mesh, isRemoved);
}

FlawPlaces joinBorders(MeshArrays& mesh, StageProgress& progress)
{
    std::vector<std::uint32_t> byPlace = borderVertices(mesh, progress);
    progress.add(0);
    std::stable_sort(byPlace.begin(), byPlace.end(), [&](std::uint32_t a, std::uint32_t b) {
        return lessByPlace(mesh.points[a], mesh.points[b]);
    });
    std::vector<std::uint32_t> joined(mesh.points.size());
    std::iota(joined.begin(), joined.end(), 0u);
    FlawPlaces places;
    for (std::size_t i = 1; i < byPlace.size(); ++i)
        if (mesh.points[byPlace[i]] == mesh.points[byPlace[i - 1]]) {
            joined[byPlace[i]] = joined[byPlace[i - 1]];
            places.push_back(mesh.points[byPlace[i]]);
        }
    if (places.empty())
        return places;
    for (Corners& corners : mesh.triangles)
        for (std::uint32_t& vertex : corners)
            vertex = joined[vertex];
    removeBrokenTriangles(mesh);
    return places;
}

FlawPlaces removeDuplicates(MeshArrays& mesh, StageProgress& progress)
{
    std::vector<std::uint32_t> const order = byDuplicates(mesh, progress);
    if (order.empty())
        return {};
    std::vector<std::uint32_t> const uses = edgeUses(mesh, progress);
    std::vector<std::uint8_t> isRemoved(mesh.triangles.size());
    for (std::size_t i = 0, end; i < order.size(); i = end) {
        Corners const corners = inOrder(mesh.triangles[order[i]]);
        for (end = i + 1; end < order.size() && inOrder(mesh.triangles[order[end]]) == corners;)
            ++end;
        Duplicates group{{&order[i], end - i}, true};
        for (std::uint32_t k = 0; k < 3; ++k)
            group.fillsGap &= uses[3 * order[i] + k] == end - i + 1;
        std::uint32_t const kept = group.kept(mesh);
        for (std::uint32_t t : group.triangles)
            isRemoved[t] = t != kept;
    }
    return removeWithPlaces(mesh, isRemoved);
}

FlawPlaces removeFlatShells(MeshArrays& mesh, StageProgress& progress)
{
    TopologyReport const topology = checkTopology(mesh, progress);
    std::vector<double> const volumes = shellVolumes(mesh, topology);
    std::vector<std::uint8_t> isRemoved(mesh.triangles.size()), isTold(volumes.size());
    FlawPlaces places;
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
        std::uint32_t const shell = topology.shellOf[t];
        isRemoved[t] = topology.isClosedShell[shell] && volumes[shell] == 0;
        if (isRemoved[t] && !std::exchange(isTold[shell], 1))
            places.push_back(mesh.point(t, 0));
    }
    removeTriangles(mesh, isRemoved);
    return places;
}

void removeUnusedPoints(MeshArrays& mesh)
{
    std::vector<std::uint32_t> places(mesh.points.size(), unused);
    for (Corners const& corners : mesh.triangles)
        for (std::uint32_t vertex : corners)
            places[vertex] = 0;
    std::uint32_t left = 0;
    for (std::size_t i = 0; i < mesh.points.size(); ++i)
        if (places[i] != unused) {
            mesh.points[left] = mesh.points[i];
            places[i] = left++;
        }
    mesh.points.resize(left);
    for (Corners& corners : mesh.triangles)
        for (std::uint32_t& vertex : corners)
            vertex = places[vertex];
}
