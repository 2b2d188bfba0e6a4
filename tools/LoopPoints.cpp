// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/LoopPoints.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>

namespace Freecut {

namespace {

using Vector = UVector3<float>;
using Wide = UVector3<double>;

constexpr float none = std::numeric_limits<float>::quiet_NaN();

Wide widened(Vector const& v)
{
    return {v.X(), v.Y(), v.Z()};
}

/// Twice the area of a closed list as a vector (the formula of Newell).
Wide areaVector(Ring const& points)
{
    Wide sum;
    for (std::size_t i = 1; i + 1 < points.size(); ++i)
        sum += widened(points[i] - points[0]) * widened(points[i + 1] - points[0]);
    return sum;
}

/// The test of isPointInTriangle for many points, in the same order of operations.
template <std::size_t count>
std::array<int, count> insideFlags(std::array<UPoint3<float>, 3> const& corners, float const* x,
                                   float const* y, float const* z)
{
    std::array<Vector, 3> const sides{corners[1] - corners[0], corners[2] - corners[1],
                                      corners[0] - corners[2]};
    auto const turn = [&](std::size_t side, std::size_t k) {
        UPoint3<float> const& from = corners[side];
        return sides[side] * Vector(x[k] - from.X(), y[k] - from.Y(), z[k] - from.Z());
    };
    std::array<int, count> flags;
    for (std::size_t k = 0; k < count; ++k) {
        Vector const c1 = turn(0, k), c2 = turn(1, k), c3 = turn(2, k);
        // No short cuts: they would be branches.
        flags[k] = int((c1 | c2) > 0) & int((c1 | c3) > 0) & int((c2 | c3) > 0);
    }
    return flags;
}

}  // namespace

/// A triangle against which points and blocks of them are tested.
///
/// A point is inside if its turns about the three sides agree, and a turn is a vector: along the
/// plane's normal by the distance from the side's line, and across it by what rounding has made of
/// the plane. Where a point is so far to the left of one line and to the right of another that the
/// former outweighs the latter in both, the two turns are opposite to the last bit.
class TriangleReach
{
public:
    TriangleReach(LoopPoints const& points, UPoint3<float> const& a, UPoint3<float> const& b,
                  UPoint3<float> const& c)
        : m_corners{a, b, c}
    {
        for (std::size_t i = 0; i < 3; ++i)
            m_lines[i] = lineFrom(points, m_corners[i], m_corners[(i + 1) % 3]);
    }

    std::array<UPoint3<float>, 3> const& corners() const { return m_corners; }

    bool excludes(LoopPoints::Block const& block) const
    {
        double const middleX = (block.lowX + block.highX) / 2;
        double const middleY = (block.lowY + block.highY) / 2;
        bool isLeft = false, isRight = false;
        for (Line const& line : m_lines) {
            double const middle = line.x * middleX + line.y * middleY + line.offset;
            double const half = std::abs(line.x) * (block.highX - middleX) +
                                std::abs(line.y) * (block.highY - middleY) + line.clear;
            isLeft |= middle > half;
            isRight |= middle < -half;
        }
        return isLeft && isRight;
    }

private:
    struct Line
    {
        // The signed distance of a point is x * X + y * Y + offset, positive to the left.
        double x = 0, y = 0, offset = 0;
        /// The distance from which on a side is certain. A line without length tells nothing.
        double clear = std::numeric_limits<double>::infinity();
    };

    static Line lineFrom(LoopPoints const& points, UPoint3<float> const& from,
                         UPoint3<float> const& to)
    {
        Wide const side = widened(to - from);
        double const length = side.GetLength();
        if (!(length > 0))
            return {};
        UPoint2<double> const start = points.inPlane(from.X(), from.Y(), from.Z());
        double const dx = (side | points.m_axisX) / length;
        double const dy = (side | points.m_axisY) / length;
        // A short side may well stand out of the plane, so that its turns lean over.
        double const lean = std::abs(side | points.m_normal) / length;
        return {-dy, dx, dy * start.X() - dx * start.Y(),
                4 * (points.m_blur + lean * 2 * points.m_reach)};
    }

    std::array<UPoint3<float>, 3> m_corners;
    std::array<Line, 3> m_lines;
};

LoopPoints::LoopPoints(Ring const& points)
    : m_points(points.size()), m_places(points.size()), m_left(points.size())
{
    for (UPoint3<float> const& point : points) {
        m_x.push_back(point.X());
        m_y.push_back(point.Y());
        m_z.push_back(point.Z());
    }
    std::iota(m_points.begin(), m_points.end(), 0u);
    m_places = m_points;
    if (points.empty())
        return;
    measurePlane(points);
    buildBlocks();
}

UPoint2<double> LoopPoints::inPlane(double x, double y, double z) const
{
    Wide const offset(x - m_origin.X(), y - m_origin.Y(), z - m_origin.Z());
    return {offset | m_axisX, offset | m_axisY};
}

void LoopPoints::measurePlane(Ring const& points)
{
    m_origin = {points[0].X(), points[0].Y(), points[0].Z()};
    m_normal = areaVector(points).Normalize();
    int const least = std::abs(m_normal.X()) < std::abs(m_normal.Y())
                          ? (std::abs(m_normal.X()) < std::abs(m_normal.Z()) ? 0 : 2)
                          : (std::abs(m_normal.Y()) < std::abs(m_normal.Z()) ? 1 : 2);
    Wide along;
    along[least] = 1;
    m_axisX = (along * m_normal).Normalize();
    m_axisY = m_normal * m_axisX;
    double height = 0;
    for (UPoint3<float> const& point : points) {
        Wide const offset = widened(point - points[0]);
        m_reach = std::max(m_reach, offset.GetLength());
        height = std::max(height, std::abs(offset | m_normal));
    }
    // The distances between points are at most twice the reach. Differences, products and sums of
    // float are each off by 2^-24 of what goes into them, of which 32 are more than enough.
    m_blur = 2 * height + 2 * m_reach * std::ldexp(32.0, -24);
    if (!std::isfinite(m_blur) || m_normal == Wide())
        m_blur = std::numeric_limits<double>::infinity();
}

void LoopPoints::buildBlocks()
{
    std::vector<Block> blocks;
    for (std::size_t i = 0; i < m_points.size(); ++i) {
        UPoint2<double> const p = inPlane(m_x[i], m_y[i], m_z[i]);
        join(blocks, i, Block{p.X(), p.Y(), p.X(), p.Y(), 1});
    }
    for (std::vector<float>* const list : {&m_x, &m_y, &m_z})
        list->resize(blocks.size() * blockSize, none);
    m_levels = {std::move(blocks)};
    while (m_levels.back().size() > 1) {
        std::vector<Block> above;
        for (std::size_t i = 0; i < m_levels.back().size(); ++i)
            join(above, i, m_levels.back()[i]);
        m_levels.push_back(std::move(above));
    }
}

void LoopPoints::join(std::vector<Block>& blocks, std::size_t place, Block const& part)
{
    if (place % blockSize == 0) {
        blocks.push_back(part);
        return;
    }
    Block& block = blocks.back();
    block.lowX = std::min(block.lowX, part.lowX);
    block.lowY = std::min(block.lowY, part.lowY);
    block.highX = std::max(block.highX, part.highX);
    block.highY = std::max(block.highY, part.highY);
    block.left += part.left;
}

void LoopPoints::remove(std::uint32_t point)
{
    std::size_t place = m_places[point];
    m_x[place] = m_y[place] = m_z[place] = none;
    for (std::vector<Block>& level : m_levels)
        --level[place /= blockSize].left;
    --m_left;
    if (m_left * 2 < m_points.size())
        dropRemoved();
}

void LoopPoints::dropRemoved()
{
    std::size_t kept = 0;
    for (std::size_t i = 0; i < m_points.size(); ++i) {
        if (std::isnan(m_x[i]))
            continue;
        m_x[kept] = m_x[i];
        m_y[kept] = m_y[i];
        m_z[kept] = m_z[i];
        m_points[kept] = m_points[i];
        m_places[m_points[i]] = std::uint32_t(kept);
        ++kept;
    }
    m_points.resize(kept);
    for (std::vector<float>* const list : {&m_x, &m_y, &m_z})
        list->resize(kept);
    buildBlocks();
}

std::optional<std::uint32_t> LoopPoints::findInside(UPoint3<float> const& a,
                                                    UPoint3<float> const& b,
                                                    UPoint3<float> const& c) const
{
    if (m_levels.empty())
        return std::nullopt;
    return findIn(m_levels.size() - 1, 0, TriangleReach(*this, a, b, c));
}

std::optional<std::uint32_t> LoopPoints::findIn(std::size_t level, std::size_t block,
                                                TriangleReach const& reach) const
{
    Block const& box = m_levels[level][block];
    if (box.left == 0 || reach.excludes(box))
        return std::nullopt;
    std::size_t const first = block * blockSize;
    // The first corners go first, so a point far on the loop stays in the way for longer.
    if (level > 0) {
        for (std::size_t k = std::min(first + blockSize, m_levels[level - 1].size()); k-- > first;)
            if (auto const found = findIn(level - 1, k, reach))
                return found;
        return std::nullopt;
    }
    // A corner of the triangle gives a zero vector and so counts as outside.
    auto const flags =
        insideFlags<blockSize>(reach.corners(), &m_x[first], &m_y[first], &m_z[first]);
    for (std::size_t k = blockSize; k-- > 0;)
        if (flags[k])
            return m_points[first + k];
    return std::nullopt;
}

}  // namespace Freecut
