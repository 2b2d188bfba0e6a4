// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/OrientationMending.h"

#include "host/services/EdgeGroups.h"
#include "host/services/VertexStars.h"
#include "host/services/WedgePairing.h"

#include <algorithm>

namespace {

constexpr std::uint32_t none = 0xffffffff;

/// Whether two half-edges along one edge run against each other, as in an oriented surface.
bool doAgree(MeshArrays const& mesh, std::uint32_t a, std::uint32_t b)
{
    return EdgeGroups::start(mesh, a) == EdgeGroups::end(mesh, b);
}

/// Floods one connected piece; collects its triangles and whether each is turned against the first.
class OrientationFlood
{
public:
    OrientationFlood(MeshArrays const& mesh, StageProgress& progress)
        : isTurned(mesh.triangles.size(), 0),
          m_mesh(mesh),
          m_progress(progress),
          m_partners(3 * mesh.triangles.size(), none),
          m_isReached(mesh.triangles.size(), 0)
    {
        EdgeGroups const edges(mesh, progress);
        for (std::size_t i = 0; i < edges.size(); ++i)
            if (edges[i].size() == 2) {
                m_partners[edges[i][0]] = edges[i][1];
                m_partners[edges[i][1]] = edges[i][0];
            }
    }

    bool isReached(std::uint32_t triangle) const { return m_isReached[triangle]; }

    std::vector<std::uint32_t> const& flood(std::uint32_t first)
    {
        m_piece.assign(1, first);
        m_isReached[first] = 1;
        for (std::size_t i = 0; i < m_piece.size(); ++i) {
            if (i % 4096 == 0)
                m_progress.add(0);
            for (std::uint32_t k = 0; k < 3; ++k)
                cross(3 * m_piece[i] + k);
        }
        return m_piece;
    }

    /// Whether the turns of the two triangles at an edge fit together, once both are reached. They
    /// do not where a surface has one side only.
    bool doesFit(std::uint32_t halfEdge) const
    {
        std::uint32_t const partner = m_partners[halfEdge];
        return partner == none || doAgree(m_mesh, halfEdge, partner) ==
                                      (isTurned[halfEdge / 3] == isTurned[partner / 3]);
    }

    std::vector<std::uint8_t> isTurned;

private:
    void cross(std::uint32_t halfEdge)
    {
        std::uint32_t const partner = m_partners[halfEdge];
        if (partner == none || m_isReached[partner / 3])
            return;
        bool const agree = EdgeGroups::start(m_mesh, halfEdge) == EdgeGroups::end(m_mesh, partner);
        isTurned[partner / 3] = isTurned[halfEdge / 3] ^ !agree;
        m_isReached[partner / 3] = 1;
        m_piece.push_back(partner / 3);
    }

    MeshArrays const& m_mesh;
    StageProgress& m_progress;
    std::vector<std::uint32_t> m_partners;
    std::vector<std::uint8_t> m_isReached;
    std::vector<std::uint32_t> m_piece;
};

/// The half-edge across each half-edge over which a fan goes on, or none.
std::vector<std::uint32_t> fanPartners(MeshArrays const& mesh, StageProgress& progress)
{
    std::vector<std::uint32_t> partners(3 * mesh.triangles.size(), none);
    EdgeGroups const edges(mesh, progress);
    for (std::size_t i = 0; i < edges.size(); ++i) {
        if (i % 65536 == 0)
            progress.add(0);
        if (edges[i].size() == 2 && doAgree(mesh, edges[i][0], edges[i][1])) {
            partners[edges[i][0]] = edges[i][1];
            partners[edges[i][1]] = edges[i][0];
        } else if (edges[i].size() > 2) {
            for (auto const& [a, b] : wedgePairs(mesh, edges[i])) {
                partners[a] = b;
                partners[b] = a;
            }
        }
    }
    return partners;
}

/// The fans at one vertex, as lists of corners.
class Fans
{
public:
    Fans(MeshArrays const& mesh, std::vector<std::uint32_t> const& partners)
        : m_partners(partners), m_isTaken(3 * mesh.triangles.size(), 0)
    {}

    /// The corners of the fan at one of its corners; empty if it has been taken before.
    std::vector<std::uint32_t> const& take(std::uint32_t corner)
    {
        m_fan.clear();
        walk(corner, [this](std::uint32_t c) { return afterwards(c); });
        if (!m_fan.empty()) {
            std::uint32_t const before = beforehand(corner);
            if (before != none)
                walk(before, [this](std::uint32_t c) { return beforehand(c); });
        }
        return m_fan;
    }

private:
    template <typename Step>
    void walk(std::uint32_t corner, Step const& step)
    {
        for (; corner != none && !m_isTaken[corner]; corner = step(corner)) {
            m_isTaken[corner] = 1;
            m_fan.push_back(corner);
        }
    }

    /// The corner across the edge that ends at this one: there the partner starts.
    std::uint32_t afterwards(std::uint32_t corner) const
    {
        return m_partners[3 * (corner / 3) + (corner + 2) % 3];
    }

    /// The corner across the edge that starts at this one.
    std::uint32_t beforehand(std::uint32_t corner) const
    {
        std::uint32_t const partner = m_partners[corner];
        return partner == none ? none : 3 * (partner / 3) + (partner + 1) % 3;
    }

    std::vector<std::uint32_t> const& m_partners;
    std::vector<std::uint8_t> m_isTaken;
    std::vector<std::uint32_t> m_fan;
};

}  // namespace

std::vector<std::uint8_t> oneSidedTriangles(MeshArrays const& mesh, StageProgress& progress)
{
    OrientationFlood flood(mesh, progress);
    std::vector<std::uint8_t> isOneSided(mesh.triangles.size(), 0);
    for (std::uint32_t t = 0; t < mesh.triangles.size(); ++t) {
        if (flood.isReached(t))
            continue;
        auto const& piece = flood.flood(t);
        bool doAllFit = true;
        for (std::uint32_t const other : piece)
            for (std::uint32_t k = 0; k < 3; ++k)
                doAllFit &= flood.doesFit(3 * other + k);
        for (std::uint32_t const other : piece)
            isOneSided[other] = !doAllFit;
    }
    return isOneSided;
}

std::vector<MeshArrays::Point> orientConsistently(MeshArrays& mesh, StageProgress& progress)
{
    OrientationFlood flood(mesh, progress);
    std::vector<MeshArrays::Point> places;
    for (std::uint32_t t = 0; t < mesh.triangles.size(); ++t) {
        if (flood.isReached(t))
            continue;
        auto const& piece = flood.flood(t);
        std::size_t const turned =
            std::size_t(std::count_if(piece.begin(), piece.end(), [&](std::uint32_t other) {
                return flood.isTurned[other] != 0;
            }));
        bool const minority = 2 * turned <= piece.size();
        for (std::uint32_t other : piece)
            flood.isTurned[other] = (flood.isTurned[other] != 0) == minority;
    }
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t)
        if (flood.isTurned[t]) {
            std::swap(mesh.triangles[t][1], mesh.triangles[t][2]);
            places.push_back(mesh.point(t, 0));
        }
    return places;
}

std::vector<std::uint32_t> splitFans(MeshArrays& mesh, StageProgress& progress)
{
    VertexStars const stars(mesh, progress);
    std::vector<std::uint32_t> const partners = fanPartners(mesh, progress);
    Fans fans(mesh, partners);
    std::vector<std::uint32_t> sources;
    for (std::uint32_t vertex = 0; vertex < stars.vertexCount(); ++vertex) {
        if (vertex % 4096 == 0)
            progress.add(0);
        bool isFirst = true;
        for (std::uint32_t corner : stars.corners(vertex)) {
            auto const& fan = fans.take(corner);
            if (fan.empty() || std::exchange(isFirst, false))
                continue;
            std::uint32_t const copy = std::uint32_t(mesh.points.size());
            mesh.points.push_back(mesh.points[vertex]);
            for (std::uint32_t c : fan)
                mesh.triangles[c / 3][c % 3] = copy;
            sources.push_back(vertex);
        }
    }
    return sources;
}
