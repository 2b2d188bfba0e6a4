// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/RayThroughTree.h"

#include "host/mesh/ExactSigns.h"

#include <algorithm>
#include <cmath>

namespace {

using Box = TriangleTree::Box;
using Origin = RayThroughTree::Origin;
using Vector = std::array<double, 3>;

bool isOnRay(Box const& box, Origin const& origin)
{
    return box.high[0] >= origin[0] && box.low[1] <= origin[1] && origin[1] <= box.high[1] &&
           box.low[2] <= origin[2] && origin[2] <= box.high[2];
}

Vector offset(Origin const& from, MeshArrays::Point const& to)
{
    return {to.X() - from[0], to.Y() - from[1], to.Z() - from[2]};
}

/// Which side of the ray, seen along x, the line from a to b passes; 0 if in doubt.
int sideOfRay(Vector const& a, Vector const& b)
{
    double const left = a[1] * b[2];
    double const right = a[2] * b[1];
    if (std::abs(left - right) <=
        2 * ExactSigns::areaErrorBound * (std::abs(left) + std::abs(right)))
        return 0;
    return left > right ? 1 : -1;
}

int certainVolumeSign(Vector const& a, Vector const& b, Vector const& c)
{
    double const volume = a[0] * (b[1] * c[2] - b[2] * c[1]) + a[1] * (b[2] * c[0] - b[0] * c[2]) +
                          a[2] * (b[0] * c[1] - b[1] * c[0]);
    double bound = ExactSigns::volumeErrorBound;
    for (int axis = 0; axis < 3; ++axis)
        bound *= std::max({std::abs(a[axis]), std::abs(b[axis]), std::abs(c[axis])});
    return std::abs(volume) <= bound ? 0 : volume > 0 ? 1 : -1;
}

enum class Passing
{
    Beside,
    Entering,
    Leaving,
    InDoubt
};

Passing passingOf(Vector const& a, Vector const& b, Vector const& c)
{
    int const sides[3] = {sideOfRay(a, b), sideOfRay(b, c), sideOfRay(c, a)};
    int const lowest = std::min({sides[0], sides[1], sides[2]});
    int const highest = std::max({sides[0], sides[1], sides[2]});
    if (lowest < 0 && highest > 0)
        return Passing::Beside;
    if (lowest == 0 || highest == 0)
        return Passing::InDoubt;
    // The plane cuts the x axis at the volume over the area seen along x.
    int const ahead = certainVolumeSign(a, b, c) * highest;
    if (ahead == 0)
        return Passing::InDoubt;
    if (ahead < 0)
        return Passing::Beside;
    return highest > 0 ? Passing::Leaving : Passing::Entering;
}

}  // namespace

RayThroughTree::Origin RayThroughTree::pointOn(MeshArrays const& mesh, std::uint32_t triangle)
{
    Origin origin;
    for (int axis = 0; axis < 3; ++axis)
        origin[std::size_t(axis)] = 0.3117 * mesh.point(triangle, 0)[axis] +
                                    0.2939 * mesh.point(triangle, 1)[axis] +
                                    0.3944 * mesh.point(triangle, 2)[axis];
    return origin;
}

std::optional<std::vector<RayThroughTree::Passage>> RayThroughTree::passages(
    Origin const& origin, std::uint32_t exceptShell) const
{
    struct Node
    {
        std::size_t level;
        std::size_t place;
    };
    std::vector<Passage> found;
    std::vector<Node> open{{m_tree.levels().size() - 1, 0}};
    while (!open.empty()) {
        Node const node = open.back();
        open.pop_back();
        if (!isOnRay(m_tree.levels()[node.level][node.place], origin))
            continue;
        if (node.level > 0) {
            open.push_back({node.level - 1, 2 * node.place});
            if (2 * node.place + 1 < m_tree.levels()[node.level - 1].size())
                open.push_back({node.level - 1, 2 * node.place + 1});
            continue;
        }
        TriangleTree::Block const& block = m_tree.blocks()[node.place];
        for (int i = 0; i < TriangleTree::blockSize; ++i) {
            std::uint32_t const t = block.triangles[i];
            if (!isOnRay(block.box(i), origin) || m_topology.shellOf[t] == exceptShell)
                continue;
            Passing const passing =
                passingOf(offset(origin, m_mesh.point(t, 0)), offset(origin, m_mesh.point(t, 1)),
                          offset(origin, m_mesh.point(t, 2)));
            if (passing == Passing::InDoubt)
                return {};
            if (passing != Passing::Beside)
                found.push_back({m_topology.shellOf[t], passing == Passing::Leaving ? 1 : -1});
        }
    }
    return found;
}
