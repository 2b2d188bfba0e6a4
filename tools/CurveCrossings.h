// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Curves.h"
#include "tools/PollSteps.h"
#include "tools/SegmentBoxes.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace Freecut {

/// Where two segments of closed curves cross. Segments are counted through all curves; number i
/// begins at point i.
struct CurveCrossing
{
    std::uint32_t first;
    std::uint32_t second;
    /// How far along each segment, from 0 to 1.
    double alongFirst;
    double alongSecond;
    /// The second segment passes from the right of the first one to its left.
    bool toLeft;
};

/// Closed curves whose points are moved by less than a thousandth of a unit, so that no three of
/// them lie in a line and no point on a segment: two segments cross or are apart, and signs are
/// exact. Curves that merely touched may cross thereby, or part.
///
/// Moved the same way wherever they are computed.
class ShakenCurves
{
public:
    /// curves   none is without points
    /// attempt  another number moves the points otherwise
    /// poll     borrowed; asked by all questions, which what it throws leaves
    ShakenCurves(Curves const& curves, unsigned attempt, WorkPoll const& poll);

    enum class Search
    {
        Done,
        TooMany,
        /// Three points in a line, or two crossings in one place: another attempt is needed.
        Tied
    };

    /// Finds all crossings in an order that depends on nothing but the curves.
    Search findCrossings(std::size_t mostCrossings, std::vector<CurveCrossing>& crossings) const;

    /// Coordinates beyond this cannot be held.
    static constexpr double reach = 1e14;

    std::size_t curveCount() const { return m_starts.size() - 1; }
    /// The first point of a curve; that of the one after the last is the number of all points.
    std::uint32_t startOf(std::size_t curve) const { return m_starts[curve]; }

    struct Lowest
    {
        std::uint32_t point;
        /// The curve turns left there.
        bool turnsLeft;
    };
    /// The lowest point of a curve.
    Lowest lowestOf(std::size_t curve) const;
    /// How often the curves wind around what is just below the lowest point of one of them; nothing
    /// if they are tied.
    std::optional<int> windingBelow(std::size_t curve) const;

private:
    struct Point
    {
        std::int64_t x, y;
    };

    std::uint32_t before(std::uint32_t point) const { return m_before[point]; }
    std::uint32_t after(std::uint32_t point) const { return m_after[point]; }
    int turn(std::uint32_t a, std::uint32_t b, std::uint32_t c) const;
    std::optional<CurveCrossing> crossing(std::uint32_t first, std::uint32_t second,
                                          bool& isTied) const;

    WorkPoll const& m_poll;
    std::vector<Point> m_points;
    std::vector<std::uint32_t> m_before;
    std::vector<std::uint32_t> m_after;
    std::vector<std::uint32_t> m_starts;
    SegmentBoxes m_boxes;
};

}  // namespace Freecut
