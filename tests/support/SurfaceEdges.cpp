// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/SurfaceEdges.h"

#include "tests/support/ExactSide.h"

#include <algorithm>

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

std::set<EdgeEnds> unpairedEdgesOf(Soup const& soup)
{
    Soup const surface = joined(soup);
    std::set<EdgeEnds> ends;
    auto const placeOf = [&](std::uint32_t point) {
        UPoint3<float> const& p = surface.points[point];
        return std::array<float, 3>{p.X() + 0.0f, p.Y() + 0.0f, p.Z() + 0.0f};
    };
    forEachEdge(surface, [&](EdgeUse const& edge, std::size_t count, std::size_t upward) {
        if (2 * upward != count)
            ends.insert(std::minmax(placeOf(edge.low), placeOf(edge.high)));
    });
    return ends;
}

}  // namespace judge
