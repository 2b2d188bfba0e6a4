// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/WedgePairing.h"

#include "host/services/EdgeGroups.h"

#include <algorithm>
#include <cmath>

namespace {

using Vector = UVector3<double>;

Vector offset(MeshArrays::Point const& from, MeshArrays::Point const& to)
{
    return {double(to.X()) - from.X(), double(to.Y()) - from.Y(), double(to.Z()) - from.Z()};
}

/// A triangle seen along the edge.
struct Spoke
{
    double angle;
    std::uint32_t halfEdge;
    bool isForward;

    bool operator<(Spoke const& o) const
    {
        return angle != o.angle ? angle < o.angle : halfEdge < o.halfEdge;
    }
};

std::vector<Spoke> spokes(MeshArrays const& mesh, std::span<std::uint32_t const> halfEdges)
{
    std::uint32_t const start = EdgeGroups::start(mesh, halfEdges[0]);
    std::uint32_t const end = EdgeGroups::end(mesh, halfEdges[0]);
    Vector const axis = offset(mesh.points[start], mesh.points[end]).Normalize();
    auto const toApex = [&](std::uint32_t halfEdge) {
        return offset(mesh.points[start], mesh.points[EdgeGroups::apex(mesh, halfEdge)]);
    };
    Vector const first = toApex(halfEdges[0]);
    Vector const across = axis * first;
    Vector const along = across * axis;
    std::vector<Spoke> result;
    for (std::uint32_t halfEdge : halfEdges) {
        Vector const spoke = toApex(halfEdge);
        result.push_back({std::atan2(spoke | across, spoke | along), halfEdge,
                          EdgeGroups::start(mesh, halfEdge) == start});
    }
    return result;
}

/// Turns the order so that no wedge reaches from its end to its beginning.
void beginOutside(std::vector<Spoke>& around)
{
    std::ptrdiff_t depth = 0, least = 0, begin = 0;
    for (std::size_t i = 0; i < around.size(); ++i) {
        depth += around[i].isForward ? -1 : 1;
        if (depth < least)
            least = depth, begin = std::ptrdiff_t(i) + 1;
    }
    std::rotate(around.begin(), around.begin() + begin, around.end());
}

}  // namespace

std::vector<std::pair<std::uint32_t, std::uint32_t>> wedgePairs(
    MeshArrays const& mesh, std::span<std::uint32_t const> halfEdges)
{
    if (halfEdges.size() % 2 != 0)
        return {};
    // Seen against the edge, a triangle that runs along it has its material clockwise of it.
    std::vector<Spoke> around = spokes(mesh, halfEdges);
    std::sort(around.begin(), around.end());
    std::vector<std::pair<std::uint32_t, std::uint32_t>> pairs;
    for (std::size_t i = 0; i < around.size(); ++i) {
        Spoke const& next = around[(i + 1) % around.size()];
        if (around[i].isForward == next.isForward)
            return {};
        if (next.isForward)
            pairs.emplace_back(around[i].halfEdge, next.halfEdge);
    }
    return pairs;
}

std::vector<NestedWedge> nestedWedges(MeshArrays const& mesh,
                                      std::span<std::uint32_t const> halfEdges)
{
    std::vector<Spoke> around = spokes(mesh, halfEdges);
    auto const forward = std::count_if(around.begin(), around.end(),
                                       [](Spoke const& spoke) { return spoke.isForward; });
    if (2 * std::size_t(forward) != around.size())
        return {};
    // Those that begin wedges come first at an angle, the outermost before the others; of those that
    // end them it comes last.
    std::sort(around.begin(), around.end(), [](Spoke const& a, Spoke const& b) {
        if (a.angle != b.angle)
            return a.angle < b.angle;
        if (a.isForward != b.isForward)
            return b.isForward;
        return a.isForward ? a.halfEdge > b.halfEdge : a.halfEdge < b.halfEdge;
    });
    beginOutside(around);
    std::vector<NestedWedge> wedges;
    std::vector<std::uint32_t> open;
    for (Spoke const& spoke : around) {
        if (!spoke.isForward) {
            open.push_back(spoke.halfEdge);
            continue;
        }
        wedges.push_back({open.back(), spoke.halfEdge, open.size() - 1});
        open.pop_back();
    }
    return wedges;
}
