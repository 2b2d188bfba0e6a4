// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/FlatSegments.h"

#include <functional>
#include <vector>

namespace Freecut {

/// The sides of a toothed outline as it was drawn, and to which tooth each belongs.
///
/// A tooth stands between two feet, points on the straight line of its edge. Between two neighbours
/// of one edge there is a gap, whose sides are the rising one of either and what lies between them.
class TeethWalls
{
public:
    static constexpr int none = -1;

    /// edges  of the outline, each from its corner by way of its teeth to the next corner
    explicit TeethWalls(std::vector<std::vector<FlatPoint>> const& edges);

    int toothCount() const { return int(m_teeth.size()); }
    /// Whether a tooth and the next one stand on one edge, so that there is a gap between them.
    bool haveGap(int tooth) const;
    /// How far a tooth and the next one are apart: anywhere, and at their feet.
    double distance(int tooth) const;
    double footDistance(int tooth) const;

    /// To what sides of another outline belong that lies beside this one: by the side of this one
    /// that is nearest to the middle of each; `none` where that is a foot.
    struct Belonging
    {
        std::vector<int> toTooth;
        /// The gap after the tooth of that number.
        std::vector<int> toGap;
    };
    Belonging belongingOf(std::vector<FlatSegment> const& sides,
                          std::function<void()> const& poll) const;

private:
    struct Wall
    {
        FlatSegment segment;
        int tooth = none;
        int gap = none;
        std::array<bool, 2> isFoot{};
    };
    struct Tooth
    {
        int edge;
        std::size_t firstWall;
        std::size_t endWall;
    };

    void addEdge(int edge, std::vector<FlatPoint> const& points);
    void addTooth(int edge, std::vector<FlatPoint> const& points,
                  std::vector<double> const& heights, std::size_t first, std::size_t last);
    static bool isAtFoot(Wall const& wall, FlatPoint const& point);
    static FlatSegments segmentsOf(std::vector<Wall> const& walls);

    std::vector<Wall> m_walls;
    std::vector<Tooth> m_teeth;
    FlatSegments m_segments;
};

}  // namespace Freecut
