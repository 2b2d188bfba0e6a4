// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/DiagonalSlabs.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

#include <algorithm>

namespace {

using Point = MeshArrays::Point;
using Slabs = TriangleTree::Box;

/// Places along the diagonals, from about -1 to 3: the box of the mesh is taken for a unit cube.
class Diagonals
{
public:
    explicit Diagonals(TriangleTree::Box const& box)
    {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            m_low[axis] = box.low[axis];
            double const size = double(box.high[axis]) - box.low[axis];
            m_scale[axis] = size > 0 ? 1 / size : 0;
        }
    }

    void add(Slabs& slabs, Point const& p) const
    {
        // Far above what rounding makes of numbers up to 3.
        constexpr float margin = 0x1p-20f;
        float const x = at(p, 0), y = at(p, 1), z = at(p, 2);
        float const places[4] = {x + y + z, x + y - z, x - y + z, -x + y + z};
        for (std::size_t lane = 0; lane < 4; ++lane) {
            slabs.low[lane] = std::min(slabs.low[lane], places[lane] - margin);
            slabs.high[lane] = std::max(slabs.high[lane], places[lane] + margin);
        }
    }

private:
    float at(Point const& p, std::size_t axis) const
    {
        return float((double(p[int(axis)]) - m_low[axis]) * m_scale[axis]);
    }

    double m_low[3];
    double m_scale[3];
};

/// Whether there are enough long triangles for their pairs to matter.
bool hasManyLong(TriangleTree const& tree)
{
    constexpr std::size_t many = 256;
    constexpr float shareOfLong = 1.0f / 64;
    auto const& bounds = tree.levels().back()[0];
    float size = 0;
    for (std::size_t axis = 0; axis < 3; ++axis)
        size = std::max(size, bounds.high[axis] - bounds.low[axis]);
    std::size_t count = 0;
    for (TriangleTree::Block const& block : tree.blocks())
        for (int place = 0; place < TriangleTree::blockSize; ++place) {
            float length = 0;
            for (int axis = 0; axis < 3; ++axis)
                length = std::max(length, block.high[axis][place] - block.low[axis][place]);
            count += length > size * shareOfLong;
        }
    return count > many;
}

}  // namespace

DiagonalSlabs::DiagonalSlabs(MeshArrays const& mesh, TriangleTree const& tree)
{
    if (tree.blocks().empty() || !hasManyLong(tree))
        return;
    Diagonals const diagonals(tree.levels().back()[0]);
    m_levels.emplace_back(tree.blocks().size());
    using Range = tbb::blocked_range<std::size_t>;
    tbb::parallel_for(Range(0, tree.blocks().size(), 512), [&](Range const& range) {
        for (std::size_t b = range.begin(); b != range.end(); ++b) {
            TriangleTree::Block const& block = tree.blocks()[b];
            for (int place = 0; place < TriangleTree::blockSize; ++place)
                if (block.low[0][place] <= block.high[0][place])
                    for (int corner = 0; corner < 3; ++corner)
                        diagonals.add(m_levels[0][b], mesh.point(block.triangles[place], corner));
        }
    });
    while (m_levels.back().size() > 1) {
        std::vector<Slabs> const& below = m_levels.back();
        std::vector<Slabs> level((below.size() + 1) / 2);
        for (std::size_t i = 0; i < below.size(); ++i)
            level[i / 2].add(below[i]);
        m_levels.push_back(std::move(level));
    }
}
