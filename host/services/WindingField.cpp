// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/WindingField.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

using Place = WindingField::Place;
using Range = tbb::blocked_range<std::size_t>;

/// A cluster counts as far from beyond so many times its radius.
constexpr double farness = 3.0;
constexpr double fullAngle = 4 * std::numbers::pi;

Place placeOf(MeshArrays::Point const& p)
{
    return {p.X(), p.Y(), p.Z()};
}

Place offset(Place const& from, Place const& to)
{
    return {to[0] - from[0], to[1] - from[1], to[2] - from[2]};
}

double dot(Place const& a, Place const& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Place cross(Place const& a, Place const& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

}  // namespace

/// After van Oosterom and Strackee, "The solid angle of a plane triangle", 1983.
double WindingField::share(MeshArrays const& mesh, std::uint32_t triangle, Place const& place)
{
    Place const a = offset(place, placeOf(mesh.point(triangle, 0)));
    Place const b = offset(place, placeOf(mesh.point(triangle, 1)));
    Place const c = offset(place, placeOf(mesh.point(triangle, 2)));
    double const la = std::sqrt(dot(a, a)), lb = std::sqrt(dot(b, b)), lc = std::sqrt(dot(c, c));
    double const volume = dot(a, cross(b, c));
    double const sum = la * lb * lc + dot(a, b) * lc + dot(b, c) * la + dot(c, a) * lb;
    return volume == 0 ? 0 : 2 * std::atan2(volume, sum) / fullAngle;
}

WindingField::WindingField(MeshArrays const& mesh, TriangleTree const& tree,
                           StageProgress& progress)
    : m_mesh(mesh), m_tree(tree)
{
    if (tree.blocks().empty())
        return;
    m_levels.emplace_back(tree.blocks().size());
    tbb::parallel_for(Range(0, tree.blocks().size(), 512), [&](Range const& range) {
        for (std::size_t b = range.begin(); b != range.end(); ++b) {
            addTriangles(m_levels[0][b], tree.blocks()[b]);
            finish(m_levels[0][b], tree.levels()[0][b]);
        }
        progress.add(0);
    });
    while (m_levels.size() < tree.levels().size()) {
        std::vector<Cluster> const& below = m_levels.back();
        std::vector<TriangleTree::Box> const& boxes = tree.levels()[m_levels.size()];
        std::vector<Cluster> level(boxes.size());
        for (std::size_t i = 0; i < level.size(); ++i) {
            level[i] =
                2 * i + 1 < below.size() ? joined(below[2 * i], below[2 * i + 1]) : below[2 * i];
            finish(level[i], boxes[i]);
        }
        m_levels.push_back(std::move(level));
        progress.add(0);
    }
}

void WindingField::addTriangles(Cluster& cluster, TriangleTree::Block const& block) const
{
    Place centres[TriangleTree::blockSize], areas[TriangleTree::blockSize];
    int count = 0;
    for (int i = 0; i < TriangleTree::blockSize; ++i) {
        if (!(block.low[0][i] <= block.high[0][i]))
            continue;
        std::uint32_t const t = block.triangles[i];
        Place const a = placeOf(m_mesh.point(t, 0)), b = placeOf(m_mesh.point(t, 1)),
                    c = placeOf(m_mesh.point(t, 2));
        Place const doubled = cross(offset(a, b), offset(a, c));
        double const size = std::sqrt(dot(doubled, doubled)) / 2;
        cluster.weight += size;
        for (std::size_t k = 0; k < 3; ++k) {
            centres[count][k] = (a[k] + b[k] + c[k]) / 3;
            areas[count][k] = doubled[k] / 2;
            cluster.centre[k] += size * centres[count][k];
            cluster.area[k] += areas[count][k];
        }
        ++count;
    }
    for (std::size_t k = 0; k < 3; ++k)
        cluster.centre[k] = cluster.weight > 0 ? cluster.centre[k] / cluster.weight
                            : count > 0        ? centres[0][k]
                                               : 0;
    for (int i = 0; i < count; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            for (std::size_t k = 0; k < 3; ++k)
                cluster.spread[3 * j + k] += areas[i][j] * (centres[i][k] - cluster.centre[k]);
}

WindingField::Cluster WindingField::joined(Cluster const& a, Cluster const& b)
{
    Cluster sum;
    sum.weight = a.weight + b.weight;
    double const share = sum.weight > 0 ? a.weight / sum.weight : 0.5;
    for (std::size_t k = 0; k < 3; ++k) {
        sum.centre[k] = share * a.centre[k] + (1 - share) * b.centre[k];
        sum.area[k] = a.area[k] + b.area[k];
    }
    for (Cluster const* const part : {&a, &b})
        for (std::size_t j = 0; j < 3; ++j)
            for (std::size_t k = 0; k < 3; ++k)
                sum.spread[3 * j + k] +=
                    part->spread[3 * j + k] + part->area[j] * (part->centre[k] - sum.centre[k]);
    return sum;
}

/// The radius about the centre that holds the whole box.
void WindingField::finish(Cluster& cluster, TriangleTree::Box const& box)
{
    double squared = 0;
    for (std::size_t k = 0; k < 3; ++k) {
        double const reach =
            std::max(cluster.centre[k] - box.low[k], double(box.high[k]) - cluster.centre[k]);
        squared += reach * reach;
    }
    cluster.radius = std::sqrt(squared);
}

/// Two terms of the expansion of the solid angle about the centre.
double WindingField::shareOf(Cluster const& cluster, Place const& place)
{
    Place const r = offset(place, cluster.centre);
    double const squared = dot(r, r), length = std::sqrt(squared);
    double const cubed = squared * length;
    double sum = dot(cluster.area, r);
    for (std::size_t j = 0; j < 3; ++j) {
        sum += cluster.spread[4 * j];
        for (std::size_t k = 0; k < 3; ++k)
            sum -= 3 * cluster.spread[3 * j + k] * r[j] * r[k] / squared;
    }
    return sum / (cubed * fullAngle);
}

double WindingField::at(Place const& place, std::span<std::uint32_t const> without) const
{
    if (m_levels.empty())
        return 0;
    struct Node
    {
        std::size_t level;
        std::size_t place;
    };
    // Enough for any number of triangles that 32 bits count.
    Node open[64];
    int count = 0;
    open[count++] = {m_levels.size() - 1, 0};
    double sum = 0;
    while (count > 0) {
        Node const node = open[--count];
        Cluster const& cluster = m_levels[node.level][node.place];
        Place const r = offset(place, cluster.centre);
        if (dot(r, r) > farness * farness * cluster.radius * cluster.radius) {
            sum += shareOf(cluster, place);
            continue;
        }
        if (node.level > 0) {
            open[count++] = {node.level - 1, 2 * node.place};
            if (2 * node.place + 1 < m_levels[node.level - 1].size())
                open[count++] = {node.level - 1, 2 * node.place + 1};
            continue;
        }
        TriangleTree::Block const& block = m_tree.blocks()[node.place];
        for (int i = 0; i < TriangleTree::blockSize; ++i)
            if (block.low[0][i] <= block.high[0][i] &&
                std::find(without.begin(), without.end(), block.triangles[i]) == without.end())
                sum += share(m_mesh, block.triangles[i], place);
    }
    return sum;
}
