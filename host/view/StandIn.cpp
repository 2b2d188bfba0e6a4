// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/StandIn.h"

#include "host/services/SpatialOrder.h"
#include "host/view/SurfaceClusters.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr std::size_t blockSize = 2048;
/// Coarser ones are not made of fewer triangles.
constexpr std::size_t coarsest = 6000;
/// In relation to the level before.
constexpr double mostTriangles = 1.0 / 3;
constexpr double leastArea = 0.75;
/// Triangles of one level, as StandIn.h tells, and of those below and above it this many times that.
constexpr double levelStep = 4;
/// Triangles that are left of a surface, times the area of a cell's side by that of the surface.
constexpr double trianglesPerCell = 2.4;
/// A first level is not worth it if it has more than this share of all triangles.
constexpr double mostOfAll = 0.3;
constexpr double mostCellsAcross = 1 << 20;

double areaOf(MeshArrays const& mesh)
{
    double sum = 0;
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
        UVector3<float> const a = mesh.point(t, 1) - mesh.point(t, 0);
        UVector3<float> const b = mesh.point(t, 2) - mesh.point(t, 0);
        sum += double((a * b).GetLength()) / 2;
    }
    return sum;
}

double widthOf(MeshArrays const& mesh)
{
    double width = 0;
    for (int axis = 0; axis < 3; ++axis) {
        auto const [low, high] =
            std::minmax_element(mesh.points.begin(), mesh.points.end(),
                                [&](auto const& a, auto const& b) { return a[axis] < b[axis]; });
        width = std::max(width, double((*high)[axis]) - (*low)[axis]);
    }
    return width;
}

/// So that about wantedTriangles are left after some steps, or at once, but not more than is worth
/// it.
double firstCell(double area, double triangles)
{
    double left = StandIn::wantedTriangles;
    while (left * levelStep <= mostOfAll * triangles)
        left *= levelStep;
    return std::sqrt(trianglesPerCell * area / std::min(left, mostOfAll * triangles));
}

std::vector<std::uint32_t> orderOf(MeshArrays const& mesh)
{
    return spatialOrder(mesh, std::vector<std::uint8_t>(mesh.triangles.size(), 0));
}

std::vector<StandIn::Block> blocksOf(MeshArrays const& mesh,
                                     std::vector<std::uint32_t> const& order)
{
    constexpr float most = std::numeric_limits<float>::max();
    std::vector<StandIn::Block> blocks;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (i % blockSize == 0)
            blocks.push_back({{most, most, most}, {-most, -most, -most}});
        StandIn::Block& block = blocks.back();
        ++block.count;
        for (int k = 0; k < 3; ++k)
            for (int axis = 0; axis < 3; ++axis) {
                float const value = mesh.point(order[i], k)[axis];
                block.low[axis] = std::min(block.low[axis], value);
                block.high[axis] = std::max(block.high[axis], value);
            }
    }
    return blocks;
}

StandIn::Level exactLevel(MeshArrays const& mesh)
{
    StandIn::Level level;
    std::vector<std::uint32_t> const order = orderOf(mesh);
    level.blocks = blocksOf(mesh, order);
    std::vector<std::uint32_t> const indices = PartSurface(mesh).indices;
    level.indices.reserve(indices.size());
    for (std::size_t const triangle : order)
        for (std::size_t k = 0; k < 3; ++k)
            level.indices.push_back(indices[3 * triangle + k]);
    return level;
}

StandIn::Level coarseLevel(MeshArrays mesh, double cell)
{
    StandIn::Level level;
    std::vector<std::uint32_t> order = orderOf(mesh);
    std::vector<MeshArrays::Corners> triangles;
    triangles.reserve(order.size());
    for (std::uint32_t const triangle : order)
        triangles.push_back(mesh.triangles[triangle]);
    mesh.triangles.swap(triangles);
    for (std::uint32_t i = 0; i < order.size(); ++i)
        order[i] = i;
    level.blocks = blocksOf(mesh, order);
    PartSurface surface(mesh);
    level.vertices = std::move(surface.vertices);
    level.indices = std::move(surface.indices);
    level.cell = cell;
    return level;
}

}  // namespace

StandIn::StandIn(MeshArrays const& mesh)
{
    if (mesh.triangles.empty())
        return;
    levels.push_back(exactLevel(mesh));
    double const area = areaOf(mesh);
    double const width = widthOf(mesh);
    if (!(area > 0) || !std::isfinite(area) || !std::isfinite(width))
        return;
    double const cell = firstCell(area, double(mesh.triangles.size()));
    SurfaceClusters clusters(mesh, std::max(cell, width / mostCellsAcross));
    std::size_t last = mesh.triangles.size();
    for (; clusters.triangleCount() >= coarsest; clusters.coarsen()) {
        if (double(clusters.triangleCount()) > mostTriangles * double(last))
            continue;
        MeshArrays coarse = clusters.mesh();
        if (areaOf(coarse) < leastArea * area)
            return;
        last = clusters.triangleCount();
        levels.push_back(coarseLevel(std::move(coarse), clusters.cell()));
    }
}
