// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/BlockSlabs.h"

#include "host/services/SpatialOrder.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

/// A slab that is not that much thinner than the box tells no more than the box does.
constexpr double shareOfThin = 1.0 / 8;

UVector3<double> vectorOf(MeshArrays::Point const& p)
{
    return {p[0], p[1], p[2]};
}

std::array<double, 3> sortedExtents(TriangleTree::Box const& box)
{
    std::array<double, 3> extents;
    for (std::size_t axis = 0; axis < 3; ++axis)
        extents[axis] = double(box.high[axis]) - box.low[axis];
    std::ranges::sort(extents);
    return extents;
}

/// Along any axis. Places that are left over have no length.
float longestTriangle(TriangleTree::Block const& block)
{
    float longest = 0;
    for (std::size_t axis = 0; axis < 3; ++axis)
        for (std::size_t place = 0; place < TriangleTree::blockSize; ++place)
            longest = std::max(longest, block.high[axis][place] - block.low[axis][place]);
    return longest;
}

/// From here on slivers that lie aslant are worth a slab: they are long for the whole, or for the
/// share that a block has of it. A regular mesh has hardly any edge of twice that side.
double longSizeOf(TriangleTree const& tree)
{
    std::array<double, 3> const extents = sortedExtents(tree.levels().back()[0]);
    double const shareOfBlock = extents[1] * extents[2] / double(tree.blocks().size());
    return std::min(shareOfLong * extents[2], 2 * std::sqrt(shareOfBlock));
}

}  // namespace

BlockSlabs::BlockSlabs(MeshArrays const& mesh, TriangleTree const& tree)
    : m_mesh(mesh), m_tree(tree), m_slabs(tree.blocks().size())
{
    if (tree.blocks().empty())
        return;
    double largest = 0;
    for (std::size_t axis = 0; axis < 3; ++axis)
        largest = std::max({largest, std::abs(double(tree.levels().back()[0].low[axis])),
                            std::abs(double(tree.levels().back()[0].high[axis]))});
    // Far above what rounding makes of a sum of three products of doubles.
    m_margin = largest * 0x1p-45;
    double const longSize = longSizeOf(tree);
    using Range = tbb::blocked_range<std::size_t>;
    tbb::parallel_for(Range(0, m_slabs.size(), 256), [&](Range const& range) {
        for (std::size_t block = range.begin(); block != range.end(); ++block)
            if (longestTriangle(tree.blocks()[block]) > longSize)
                m_slabs[block] = slabOf(std::uint32_t(block));
    });
}

template <typename Visit>
void BlockSlabs::forCorners(std::uint32_t block, Visit const& visit) const
{
    TriangleTree::Block const& triangles = m_tree.blocks()[block];
    for (int place = 0; place < TriangleTree::blockSize; ++place)
        if (triangles.low[0][place] <= triangles.high[0][place])
            for (int corner = 0; corner < 3; ++corner)
                if (!visit(vectorOf(m_mesh.point(triangles.triangles[place], corner))))
                    return;
}

BlockSlabs::Slab BlockSlabs::slabOf(std::uint32_t block) const
{
    Slab slab;
    std::array<double, 3> const extents = sortedExtents(m_tree.levels()[0][block]);
    // Across the longest edge, within the plane of its triangle.
    TriangleTree::Block const& triangles = m_tree.blocks()[block];
    Vector along, normal;
    double longest = 0;
    for (int place = 0; place < TriangleTree::blockSize; ++place) {
        if (!(triangles.low[0][place] <= triangles.high[0][place]))
            continue;
        Vector corners[3];
        for (int corner = 0; corner < 3; ++corner)
            corners[corner] = vectorOf(m_mesh.point(triangles.triangles[place], corner));
        for (int corner = 0; corner < 3; ++corner) {
            Vector const edge = corners[(corner + 1) % 3] - corners[corner];
            double const length = edge.GetLength();
            if (length <= longest)
                continue;
            longest = length;
            along = edge;
            normal = edge * (corners[(corner + 2) % 3] - corners[corner]);
        }
    }
    slab.across = along * normal;
    double const length = slab.across.GetLength();
    if (!(length > 0) || !std::isfinite(length))
        return slab;
    slab.across.Normalize();
    slab.low = std::numeric_limits<double>::infinity();
    slab.high = -slab.low;
    forCorners(block, [&](Vector const& corner) {
        double const place = slab.across | corner;
        slab.low = std::min(slab.low, place);
        slab.high = std::max(slab.high, place);
        return true;
    });
    // A level face has no height: its box is as thin as the second extent.
    slab.isThin = slab.high - slab.low < shareOfThin * extents[1];
    return slab;
}

bool BlockSlabs::isBeside(Slab const& slab, std::uint32_t block) const
{
    bool isBelow = true, isAbove = true;
    forCorners(block, [&](Vector const& corner) {
        double const place = slab.across | corner;
        isBelow = isBelow && place < slab.low - m_margin;
        isAbove = isAbove && place > slab.high + m_margin;
        return isBelow || isAbove;
    });
    return isBelow || isAbove;
}
