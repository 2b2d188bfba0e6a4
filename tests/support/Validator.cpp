// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Validator.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <sstream>
#include <unordered_map>

namespace {

UVector3<double> wide(UPoint3<float> const& p)
{
    return {p.X(), p.Y(), p.Z()};
}

UVector3<double> doubledArea(Soup const& soup, std::array<std::uint32_t, 3> const& t)
{
    auto const a = wide(soup.points[t[0]]);
    return (wide(soup.points[t[1]]) - a) * (wide(soup.points[t[2]]) - a);
}

std::unordered_map<std::uint64_t, int> directedEdges(Soup const& soup)
{
    std::unordered_map<std::uint64_t, int> edges;
    edges.reserve(soup.triangles.size() * 3);
    for (auto const& t : soup.triangles)
        for (std::size_t i = 0; i < 3; ++i)
            ++edges[(std::uint64_t(t[i]) << 32) | t[(i + 1) % 3]];
    return edges;
}

int countOf(std::unordered_map<std::uint64_t, int> const& edges, std::uint64_t key)
{
    auto const found = edges.find(key);
    return found == edges.end() ? 0 : found->second;
}

std::uint64_t reversed(std::uint64_t key)
{
    return (key << 32) | (key >> 32);
}

void describeEdges(Soup const& soup, int allowed, std::ostream& faults)
{
    auto const edges = directedEdges(soup);
    std::size_t unpaired = 0, crowded = 0;
    std::uint64_t example = 0;
    for (auto const& [edge, count] : edges) {
        bool const isUnpaired = countOf(edges, reversed(edge)) != count;
        unpaired += isUnpaired;
        crowded += count > allowed;
        if (isUnpaired || count > allowed)
            example = edge;
    }
    if (unpaired + crowded == 0)
        return;
    auto const p = soup.points[example >> 32];
    faults << unpaired << " unpaired and " << crowded << " crowded edges, one at (" << p.X() << ", "
           << p.Y() << ", " << p.Z() << "); ";
}

void describeAreas(Soup const& soup, std::ostream& faults)
{
    std::size_t flat = 0;
    for (auto const& t : soup.triangles)
        flat += doubledArea(soup, t).GetLength() == 0;
    if (flat > 0)
        faults << flat << " triangles without area; ";
}

}  // namespace

std::string closedSolidFaults(Soup const& soup)
{
    std::ostringstream faults;
    // Solids may touch themselves along an edge, and each layer of a part has edges of its own.
    describeEdges(soup, 8, faults);
    describeAreas(soup, faults);
    return faults.str();
}

std::string closedSolidFaults(MeshKernel const& kernel)
{
    auto const mesh = kernel.readMesh();
    if (mesh->triangleCount != mesh->triangles.size() || mesh->vertexCount != mesh->vertices.size())
        return "stored counts differ from the lists";
    return closedSolidFaults(soupOf(kernel));
}

std::string manifoldFaults(Soup const& soup)
{
    std::ostringstream faults;
    describeEdges(soup, 1, faults);
    describeAreas(soup, faults);
    return faults.str();
}

double volumeOf(Soup const& soup)
{
    double sixfold = 0;
    for (auto const& t : soup.triangles)
        sixfold += wide(soup.points[t[0]]) | (wide(soup.points[t[1]]) * wide(soup.points[t[2]]));
    return sixfold / 6;
}

double areaOf(Soup const& soup)
{
    double doubled = 0;
    for (auto const& t : soup.triangles)
        doubled += doubledArea(soup, t).GetLength();
    return doubled / 2;
}

UVector3<double> vectorAreaOf(Soup const& soup)
{
    UVector3<double> doubled;
    for (auto const& t : soup.triangles)
        doubled += doubledArea(soup, t);
    return doubled / 2;
}

std::size_t componentsOf(Soup const& soup)
{
    std::vector<std::uint32_t> parent(soup.points.size());
    std::iota(parent.begin(), parent.end(), 0u);
    auto const find = [&](std::uint32_t v) {
        while (parent[v] != v)
            v = parent[v] = parent[parent[v]];
        return v;
    };
    for (auto const& t : soup.triangles) {
        parent[find(t[1])] = find(t[0]);
        parent[find(t[2])] = find(t[0]);
    }
    std::map<std::uint32_t, int> roots;
    for (auto const& t : soup.triangles)
        ++roots[find(t[0])];
    return roots.size();
}

long eulerNumberOf(Soup const& soup)
{
    std::vector<bool> used(soup.points.size(), false);
    for (auto const& t : soup.triangles)
        for (std::uint32_t const v : t)
            used[v] = true;
    std::size_t undirected = 0;
    auto const edges = directedEdges(soup);
    for (auto const& [edge, count] : edges)
        undirected += (edge >> 32) < (edge & 0xffffffff) || countOf(edges, reversed(edge)) == 0;
    return long(std::count(used.begin(), used.end(), true)) - long(undirected) +
           long(soup.triangles.size());
}

std::size_t borderEdgesOf(Soup const& soup)
{
    auto const edges = directedEdges(soup);
    std::size_t border = 0;
    for (auto const& [edge, count] : edges)
        border += countOf(edges, reversed(edge)) == 0;
    return border;
}
