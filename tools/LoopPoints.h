// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Loops.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace Freecut {

class TriangleReach;

/// The points of a planar loop that are left while ears are cut from it. Neighbours on the loop
/// stand in blocks: a block that is clearly outside a triangle is passed over, and the points of
/// others are tested many at once.
class LoopPoints
{
public:
    explicit LoopPoints(Ring const& points);

    void remove(std::uint32_t point);

    /// A point that lies inside a triangle, most often the last one; none if there is none. Which
    /// points lie inside is told by isPointInTriangle to the last bit.
    std::optional<std::uint32_t> findInside(UPoint3<float> const& a, UPoint3<float> const& b,
                                            UPoint3<float> const& c) const;

private:
    friend class TriangleReach;

    static constexpr std::size_t blockSize = 16;

    /// A box in the plane of the loop, around points or around boxes.
    struct Block
    {
        double lowX, lowY, highX, highY;
        std::size_t left;
    };

    UPoint2<double> inPlane(double x, double y, double z) const;
    void measurePlane(Ring const& points);
    void buildBlocks();
    static void join(std::vector<Block>& blocks, std::size_t place, Block const& part);
    void dropRemoved();
    std::optional<std::uint32_t> findIn(std::size_t level, std::size_t block,
                                        TriangleReach const& reach) const;

    // Removed points are no numbers, and so are those that pad the last block.
    std::vector<float> m_x;
    std::vector<float> m_y;
    std::vector<float> m_z;
    /// The point at a place, and where a point stands.
    std::vector<std::uint32_t> m_points;
    std::vector<std::uint32_t> m_places;
    /// Blocks of points first, then blocks of blocks, up to a single one.
    std::vector<std::vector<Block>> m_levels;
    std::size_t m_left;

    UPoint3<double> m_origin;
    UVector3<double> m_axisX;
    UVector3<double> m_axisY;
    UVector3<double> m_normal;
    /// The distance of all points from the first one, at most.
    double m_reach = 0;
    /// By how much rounding can displace a point from a line that lies in the plane, at most.
    double m_blur = 0;
};

}  // namespace Freecut
