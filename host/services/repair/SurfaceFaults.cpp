// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/SurfaceFaults.h"

#include "host/mesh/DisjointSets.h"
#include "host/services/EdgeGroups.h"

#include <algorithm>

namespace {

using Flaw = Repair::Flaw;
using Point = MeshArrays::Point;
constexpr std::uint32_t none = 0xffffffff;

}  // namespace

SurfaceFaults::SurfaceFaults(MeshArrays const& mesh, TopologyReport const& topology,
                             StageProgress& progress)
    : m_triangleCount(mesh.triangles.size())
{
    for (std::uint32_t t = 0; t < m_triangleCount; ++t)
        if (topology.isDegenerate[t]) {
            Point const& place = mesh.point(t, 0);
            m_faults.push_back({Flaw::degenerateTriangle, {}, place, place, place});
            include(m_faults.back(), mesh, t);
        }
    addHoles(mesh, progress);
}

void SurfaceFaults::addHoles(MeshArrays const& mesh, StageProgress& progress)
{
    EdgeGroups const edges(mesh, progress);
    DisjointSets loops(mesh.points.size());
    std::vector<std::uint32_t> border;
    for (std::size_t i = 0; i < edges.size(); ++i)
        if (edges[i].size() == 1) {
            border.push_back(edges[i][0]);
            loops.unite(EdgeGroups::start(mesh, border.back()),
                        EdgeGroups::end(mesh, border.back()));
        }
    std::vector<std::uint32_t> holeAt(mesh.points.size(), none);
    for (std::uint32_t const halfEdge : border) {
        std::uint32_t const start = EdgeGroups::start(mesh, halfEdge);
        std::uint32_t& hole = holeAt[loops.root(start)];
        if (hole == none) {
            hole = std::uint32_t(m_faults.size());
            Point const& place = mesh.points[start];
            m_faults.push_back({Flaw::hole, {}, place, place, place});
        }
        include(m_faults[hole], mesh, halfEdge / 3);
    }
}

void SurfaceFaults::include(Fault& fault, MeshArrays const& mesh, std::uint32_t triangle)
{
    fault.triangles.push_back(triangle);
    for (int k = 0; k < 3; ++k)
        for (int axis = 0; axis < 3; ++axis) {
            float const c = mesh.point(triangle, k)[axis];
            fault.low[axis] = std::min(fault.low[axis], c);
            fault.high[axis] = std::max(fault.high[axis], c);
        }
}

bool SurfaceFaults::areAny() const
{
    return std::any_of(m_faults.begin(), m_faults.end(),
                       [](Fault const& fault) { return !fault.isLeftOut; });
}

std::vector<std::uint8_t> SurfaceFaults::seeds() const
{
    std::vector<std::uint8_t> isSeed(m_triangleCount, 0);
    for (Fault const& fault : m_faults)
        if (!fault.isLeftOut)
            for (std::uint32_t const t : fault.triangles)
                isSeed[t] = 1;
    return isSeed;
}

bool SurfaceFaults::isNear(Fault const& fault, Point const& place)
{
    float size = 0;
    for (int axis = 0; axis < 3; ++axis)
        size = std::max(size, fault.high[axis] - fault.low[axis]);
    for (int axis = 0; axis < 3; ++axis)
        if (place[axis] < fault.low[axis] - size / 2 || place[axis] > fault.high[axis] + size / 2)
            return false;
    return true;
}

void SurfaceFaults::leaveOut(std::vector<Point> const& places)
{
    bool isFound = false;
    for (Fault& fault : m_faults)
        if (!fault.isLeftOut && std::any_of(places.begin(), places.end(), [&](Point const& place) {
                return isNear(fault, place);
            }))
            isFound = fault.isLeftOut = true;
    if (!isFound)
        for (Fault& fault : m_faults)
            fault.isLeftOut = true;
}

std::vector<Point> SurfaceFaults::placesOf(Flaw flaw, bool areLeftOut) const
{
    std::vector<Point> places;
    for (Fault const& fault : m_faults)
        if (fault.flaw == flaw && fault.isLeftOut == areLeftOut)
            places.push_back(fault.place);
    return places;
}
