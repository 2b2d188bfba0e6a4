// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/ShellNesting.h"

#include "host/services/RayThroughTree.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

using Point = MeshArrays::Point;
using ShellPairs = std::vector<std::pair<std::uint32_t, std::uint32_t>>;

/// Triangles by shell, in ascending order within each.
struct ShellLists
{
    explicit ShellLists(TopologyReport const& topology)
        : first(topology.isClosedShell.size() + 1, 0), triangles(topology.shellOf.size())
    {
        for (std::uint32_t shell : topology.shellOf)
            ++first[shell];
        std::uint32_t end = 0;
        for (std::uint32_t& place : first)
            place = end += place;
        for (std::size_t t = triangles.size(); t-- > 0;)
            triangles[--first[topology.shellOf[t]]] = std::uint32_t(t);
    }

    std::vector<std::uint32_t> first;
    std::vector<std::uint32_t> triangles;
};

bool doMeet(ShellPairs const& meeting, std::uint32_t a, std::uint32_t b)
{
    return std::binary_search(meeting.begin(), meeting.end(),
                              std::pair(std::min(a, b), std::max(a, b)));
}

/// The shells that the ray leaves more often than it enters them, or the other way round.
std::vector<std::uint32_t> shellsAround(std::vector<RayThroughTree::Passage> passages,
                                        std::uint32_t shell, std::vector<double> const& volumes,
                                        ShellPairs const& meeting)
{
    std::sort(passages.begin(), passages.end());
    std::vector<std::uint32_t> around;
    for (std::size_t i = 0; i < passages.size();) {
        std::uint32_t const other = passages[i].shell;
        int turns = 0;
        for (; i < passages.size() && passages[i].shell == other; ++i)
            turns += passages[i].direction;
        if (turns != 0 && volumes[other] != 0 && !doMeet(meeting, shell, other))
            around.push_back(other);
    }
    return around;
}

/// From one of a few points of a shell; none where rounding leaves all of them open.
std::vector<std::uint32_t> shellsAround(std::uint32_t shell, MeshArrays const& mesh,
                                        ShellLists const& lists, RayThroughTree const& rays,
                                        std::vector<double> const& volumes,
                                        ShellPairs const& meeting)
{
    std::size_t const size = lists.first[shell + 1] - lists.first[shell];
    constexpr std::size_t mostRays = 16;
    for (std::size_t i = 0; i < std::min(size, mostRays); ++i) {
        std::size_t const place = lists.first[shell] + i * size / std::min(size, mostRays);
        auto const passages =
            rays.passages(RayThroughTree::pointOn(mesh, lists.triangles[place]), shell);
        if (passages)
            return shellsAround(*passages, shell, volumes, meeting);
    }
    return {};
}

}  // namespace

std::vector<double> shellVolumes(MeshArrays const& mesh, TopologyReport const& topology)
{
    std::size_t const count = topology.isClosedShell.size();
    std::vector<double> volumes(count, 0), sizes(count, 0);
    std::vector<Point const*> origins(count, nullptr);
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
        std::uint32_t const shell = topology.shellOf[t];
        if (!topology.isClosedShell[shell])
            continue;
        if (!origins[shell])
            origins[shell] = &mesh.point(t, 0);
        auto const offset = [&](int k) {
            Point const& from = *origins[shell];
            Point const& to = mesh.point(t, k);
            return UVector3<double>(double(to.X()) - from.X(), double(to.Y()) - from.Y(),
                                    double(to.Z()) - from.Z());
        };
        double const volume = offset(0) | (offset(1) * offset(2));
        volumes[shell] += volume;
        sizes[shell] += std::abs(volume);
    }
    for (std::size_t shell = 0; shell < count; ++shell)
        if (!(std::abs(volumes[shell]) > 1e-12 * sizes[shell]))
            volumes[shell] = 0;
    return volumes;
}

std::vector<std::uint32_t> shellDepths(MeshArrays const& mesh, TopologyReport const& topology,
                                       TriangleTree const& tree, std::vector<double> const& volumes,
                                       ShellPairs const& meeting, StageProgress& progress)
{
    ShellLists const lists(topology);
    RayThroughTree const rays(mesh, topology, tree);
    std::vector<std::uint32_t> depths(volumes.size(), 0);
    for (std::uint32_t shell = 0; shell < volumes.size(); ++shell) {
        progress.add(1);
        if (volumes[shell] != 0)
            depths[shell] =
                std::uint32_t(shellsAround(shell, mesh, lists, rays, volumes, meeting).size());
    }
    return depths;
}

std::vector<std::uint32_t> shellCarriers(MeshArrays const& mesh, TopologyReport const& topology,
                                         TriangleTree const& tree,
                                         std::vector<double> const& volumes,
                                         ShellPairs const& meeting, StageProgress& progress)
{
    auto const depths = shellDepths(mesh, topology, tree, volumes, meeting, progress);
    ShellLists const lists(topology);
    RayThroughTree const rays(mesh, topology, tree);
    std::vector<std::uint32_t> carriers(volumes.size());
    for (std::uint32_t shell = 0; shell < volumes.size(); ++shell) {
        carriers[shell] = shell;
        if (!(volumes[shell] < 0) || depths[shell] % 2 == 0)
            continue;
        auto const around = shellsAround(shell, mesh, lists, rays, volumes, meeting);
        carriers[shell] = *std::ranges::max_element(around, {}, [&](auto s) { return depths[s]; });
        progress.add(0);
    }
    return carriers;
}
