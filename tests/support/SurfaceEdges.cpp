// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/SurfaceEdges.h"

#include "tests/support/ExactSide.h"

#include <algorithm>
#include <array>

namespace judge {
namespace {

struct EdgeUse
{
    std::uint32_t low;
    std::uint32_t high;
    bool isUpward;

    bool isOn(EdgeUse const& other) const { return low == other.low && high == other.high; }
};

Soup joined(Soup soup)
{
    soup.joinPoints();
    return soup;
}

/// All uses of edges, those of one edge next to each other.
std::vector<EdgeUse> usesOf(Soup const& soup)
{
    std::vector<EdgeUse> uses;
    uses.reserve(soup.triangles.size() * 3);
    for (auto const& t : soup.triangles)
        for (std::size_t i = 0; i < 3; ++i) {
            std::uint32_t const from = t[i], to = t[(i + 1) % 3];
            if (from != to)
                uses.push_back({std::min(from, to), std::max(from, to), from < to});
        }
    std::sort(uses.begin(), uses.end(), [](EdgeUse const& a, EdgeUse const& b) {
        return std::pair(a.low, a.high) < std::pair(b.low, b.high);
    });
    return uses;
}

/// Calls `visit` with each edge, the number of its triangles, and how many of them run upward.
template <typename Visit>
void forEachEdge(Soup const& soup, Visit const& visit)
{
    std::vector<EdgeUse> const uses = usesOf(soup);
    for (std::size_t first = 0; first < uses.size();) {
        std::size_t last = first, upward = 0;
        for (; last < uses.size() && uses[last].isOn(uses[first]); ++last)
            upward += uses[last].isUpward;
        visit(uses[first], last - first, upward);
        first = last;
    }
}

using Ends = std::pair<std::uint32_t, std::uint32_t>;

/// The triangles at each edge.
std::map<Ends, std::vector<std::size_t>> trianglesAtEdges(Soup const& soup)
{
    std::map<Ends, std::vector<std::size_t>> at;
    for (std::size_t t = 0; t < soup.triangles.size(); ++t)
        for (std::size_t i = 0; i < 3; ++i) {
            std::uint32_t const a = soup.triangles[t][i], b = soup.triangles[t][(i + 1) % 3];
            if (a != b)
                at[std::minmax(a, b)].push_back(t);
        }
    return at;
}

/// By triangle: how many of those before it have the same corners.
std::vector<std::size_t> layersOf(Soup const& soup)
{
    std::map<std::array<std::uint32_t, 3>, std::size_t> counts;
    std::vector<std::size_t> layers;
    for (auto corners : soup.triangles) {
        std::sort(corners.begin(), corners.end());
        layers.push_back(counts[corners]++);
    }
    return layers;
}

/// Drops repeats where edges have an odd number of triangles. Those that hang together go together,
/// for between them edges have an even number again; and the last repeats go first, so that of a
/// solid that is there twice both layers stay where one triangle is there three times.
std::vector<bool> droppedRepeats(Soup const& soup)
{
    auto const layers = layersOf(soup);
    auto const at = trianglesAtEdges(soup);
    std::vector<bool> isDropped(soup.triangles.size(), false);
    std::size_t layer = 0;
    for (std::size_t const of : layers)
        layer = std::max(layer, of);
    for (; layer > 0; --layer) {
        std::vector<bool> isSurplus(soup.triangles.size(), false);
        for (bool isGrowing = true; isGrowing;) {
            isGrowing = false;
            for (auto const& [ends, triangles] : at) {
                auto const count = std::count_if(triangles.begin(), triangles.end(),
                                                 [&](auto t) { return !isDropped[t]; });
                bool const isReached =
                    count % 2 == 1 || std::any_of(triangles.begin(), triangles.end(),
                                                  [&](auto t) { return isSurplus[t]; });
                for (std::size_t const t : triangles)
                    if (isReached && layers[t] == layer && !isSurplus[t])
                        isGrowing = isSurplus[t] = true;
            }
        }
        for (std::size_t t = 0; t < isSurplus.size(); ++t)
            isDropped[t] = isDropped[t] || isSurplus[t];
    }
    return isDropped;
}

/// Leaves the triangles that are dropped, or the others.
void keep(bool areDropped, std::vector<bool> const& isDropped, Soup& soup)
{
    std::size_t next = 0;
    std::erase_if(soup.triangles, [&](auto const&) { return isDropped[next++] != areDropped; });
}

bool doesRun(std::array<std::uint32_t, 3> const& t, std::uint32_t from, std::uint32_t to)
{
    return (t[0] == from && t[1] == to) || (t[1] == from && t[2] == to) ||
           (t[2] == from && t[0] == to);
}

void turnMinorities(Soup& soup)
{
    struct Link
    {
        std::size_t triangle;
        bool doesAgree;
    };
    std::vector<std::vector<Link>> links(soup.triangles.size());
    for (auto const& [ends, at] : trianglesAtEdges(soup))
        if (at.size() == 2) {
            bool const agree = doesRun(soup.triangles[at[0]], ends.first, ends.second) !=
                               doesRun(soup.triangles[at[1]], ends.first, ends.second);
            links[at[0]].push_back({at[1], agree});
            links[at[1]].push_back({at[0], agree});
        }
    std::vector<int> way(soup.triangles.size(), 0);
    for (std::size_t start = 0; start < way.size(); ++start) {
        if (way[start] != 0)
            continue;
        std::vector<std::size_t> piece{start};
        way[start] = 1;
        int sum = 0;
        for (std::size_t i = 0; i < piece.size(); ++i) {
            sum += way[piece[i]];
            for (Link const& link : links[piece[i]])
                if (way[link.triangle] == 0) {
                    way[link.triangle] = link.doesAgree ? way[piece[i]] : -way[piece[i]];
                    piece.push_back(link.triangle);
                }
        }
        for (std::size_t const t : piece)
            if (way[t] * sum < 0)
                std::swap(soup.triangles[t][1], soup.triangles[t][2]);
    }
}

}  // namespace

SurfaceEdges edgesOf(Soup const& soup)
{
    Soup const surface = joined(soup);
    SurfaceEdges edges;
    forEachEdge(surface, [&](EdgeUse const&, std::size_t count, std::size_t upward) {
        bool const isPaired = 2 * upward == count;
        edges.borders += count == 1;
        edges.disagreeing += count == 2 && !isPaired;
        edges.crowdedPaired += count > 2 && isPaired;
        edges.crowdedUnpaired += count > 2 && !isPaired;
    });
    for (auto const& t : surface.triangles)
        edges.flatTriangles +=
            areInLine(surface.points[t[0]], surface.points[t[1]], surface.points[t[2]]);
    return edges;
}

std::map<EdgeEnds, std::size_t> unpairedEdgesOf(Soup const& soup)
{
    Soup const surface = joined(soup);
    std::map<EdgeEnds, std::size_t> ends;
    auto const placeOf = [&](std::uint32_t point) {
        UPoint3<float> const& p = surface.points[point];
        return std::array<float, 3>{p.X() + 0.0f, p.Y() + 0.0f, p.Z() + 0.0f};
    };
    forEachEdge(surface, [&](EdgeUse const& edge, std::size_t count, std::size_t upward) {
        if (2 * upward != count)
            ends.emplace(std::minmax(placeOf(edge.low), placeOf(edge.high)), count);
    });
    return ends;
}

Soup inOrder(Soup soup)
{
    soup.joinPoints();
    keep(false, droppedRepeats(soup), soup);
    turnMinorities(soup);
    return soup;
}

Soup surplusOf(Soup soup)
{
    soup.joinPoints();
    keep(true, droppedRepeats(soup), soup);
    return soup;
}

}  // namespace judge
