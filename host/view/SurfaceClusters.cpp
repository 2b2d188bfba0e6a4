// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/SurfaceClusters.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

using Point = MeshArrays::Point;
using Corners = MeshArrays::Corners;
using Vector = UVector3<double>;

constexpr std::uint64_t mostCells = (1 << 20) - 1;
/// What the mean of a cell's points weighs beside the planes: it decides where these leave a choice.
constexpr double meanWeight = 1e-3;

/// The bits of a number with two zeros between each and the next.
std::uint64_t spread(std::uint64_t x)
{
    x = (x | x << 32) & 0x001f00000000ffffu;
    x = (x | x << 16) & 0x001f0000ff0000ffu;
    x = (x | x << 8) & 0x100f00f00f00f00fu;
    x = (x | x << 4) & 0x10c30c30c30c30c3u;
    return (x | x << 2) & 0x1249249249249249u;
}

Vector between(Point const& from, Point const& to)
{
    return {double(to.X()) - from.X(), double(to.Y()) - from.Y(), double(to.Z()) - from.Z()};
}

Point lowestOf(std::vector<Point> const& points)
{
    Point low = points.empty() ? Point() : points[0];
    for (Point const& p : points)
        for (int axis = 0; axis < 3; ++axis)
            low[axis] = std::min(low[axis], p[axis]);
    return low;
}

bool isCollapsed(Corners const& t)
{
    return t[0] == t[1] || t[1] == t[2] || t[2] == t[0];
}

}  // namespace

SurfaceClusters::SurfaceClusters(MeshArrays const& mesh, double cell)
    : m_cell(cell), m_origin(lowestOf(mesh.points)), m_triangles(mesh.triangles)
{
    join(mesh);
    addPlanes(mesh);
    std::erase_if(m_triangles, isCollapsed);
}

void SurfaceClusters::join(MeshArrays const& mesh)
{
    std::vector<std::pair<std::uint64_t, std::uint32_t>> places(mesh.points.size());
    for (std::uint32_t i = 0; i < places.size(); ++i) {
        Vector const way = between(m_origin, mesh.points[i]);
        std::uint64_t key = 0;
        for (int axis = 0; axis < 3; ++axis) {
            double const column = way[axis] / m_cell;
            key |= spread(column < double(mostCells) ? std::uint64_t(column) : mostCells) << axis;
        }
        places[i] = {key, i};
    }
    std::sort(places.begin(), places.end());
    std::vector<std::uint32_t> clusterOf(places.size());
    for (auto const& [key, point] : places) {
        if (m_keys.empty() || m_keys.back() != key) {
            m_keys.push_back(key);
            m_clusters.emplace_back();
        }
        clusterOf[point] = std::uint32_t(m_keys.size() - 1);
        m_clusters.back().sum += between(m_origin, mesh.points[point]);
        m_clusters.back().points += 1;
    }
    for (Corners& t : m_triangles)
        for (std::uint32_t& corner : t)
            corner = clusterOf[corner];
}

void SurfaceClusters::addPlanes(MeshArrays const& mesh)
{
    for (std::size_t i = 0; i < m_triangles.size(); ++i) {
        Vector const from = between(m_origin, mesh.point(i, 0));
        Vector n = between(mesh.point(i, 0), mesh.point(i, 1)) *
                   between(mesh.point(i, 0), mesh.point(i, 2));
        double const weight = n.GetLength();
        if (weight == 0)
            continue;
        n = n / weight;
        double const offset = n | from;
        Corners const& t = m_triangles[i];
        for (int k = 0; k < 3; ++k) {
            // Once for each cell.
            if ((k > 0 && t[k] == t[0]) || (k > 1 && t[k] == t[1]))
                continue;
            Cluster& c = m_clusters[t[k]];
            c.xx += weight * n.X() * n.X();
            c.xy += weight * n.X() * n.Y();
            c.xz += weight * n.X() * n.Z();
            c.yy += weight * n.Y() * n.Y();
            c.yz += weight * n.Y() * n.Z();
            c.zz += weight * n.Z() * n.Z();
            c.right += n * (weight * offset);
        }
    }
}

void SurfaceClusters::coarsen()
{
    m_cell *= 2;
    std::vector<std::uint32_t> wider(m_keys.size());
    std::size_t last = 0;
    for (std::size_t i = 0; i < m_keys.size(); ++i) {
        std::uint64_t const key = m_keys[i] >> 3;
        if (i == 0 || m_keys[last] != key) {
            last = i == 0 ? 0 : last + 1;
            m_keys[last] = key;
            m_clusters[last] = m_clusters[i];
        } else {
            Cluster& sum = m_clusters[last];
            Cluster const& c = m_clusters[i];
            sum.xx += c.xx;
            sum.xy += c.xy;
            sum.xz += c.xz;
            sum.yy += c.yy;
            sum.yz += c.yz;
            sum.zz += c.zz;
            sum.right += c.right;
            sum.sum += c.sum;
            sum.points += c.points;
        }
        wider[i] = std::uint32_t(last);
    }
    m_keys.resize(m_keys.empty() ? 0 : last + 1);
    m_clusters.resize(m_keys.size());
    for (Corners& t : m_triangles)
        for (std::uint32_t& corner : t)
            corner = wider[corner];
    std::erase_if(m_triangles, isCollapsed);
}

// The minimum by Cramer's rule. It never lies farther from the points' mean than a cell is wide: where
// planes are nearly parallel it would be far off.
SurfaceClusters::Vector SurfaceClusters::placeOf(Cluster const& c) const
{
    Vector const mean = c.sum / c.points;
    double const pull = meanWeight * (c.xx + c.yy + c.zz);
    Vector const x(c.xx + pull, c.xy, c.xz), y(c.xy, c.yy + pull, c.yz), z(c.xz, c.yz, c.zz + pull);
    Vector const right = c.right + mean * pull;
    double const volume = x | (y * z);
    if (!(volume > 0))
        return mean;
    Vector const place((right | (y * z)) / volume, (x | (right * z)) / volume,
                       (x | (y * right)) / volume);
    return (place - mean).GetLength() < m_cell ? place : mean;
}

MeshArrays SurfaceClusters::mesh() const
{
    MeshArrays result;
    result.triangles = m_triangles;
    std::vector<std::uint32_t> places(m_clusters.size(), ~0u);
    for (Corners& t : result.triangles)
        for (std::uint32_t& corner : t) {
            std::uint32_t& place = places[corner];
            if (place == ~0u) {
                place = std::uint32_t(result.points.size());
                Vector const p = placeOf(m_clusters[corner]);
                result.points.emplace_back(float(m_origin.X() + p.X()), float(m_origin.Y() + p.Y()),
                                           float(m_origin.Z() + p.Z()));
            }
            corner = place;
        }
    return result;
}
