// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Loops.h"
#include "tools/PollSteps.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace Freecut {

/// A piece of an edge between two crossings.
struct DirectedSegment
{
    UPoint2<float> start;
    UPoint2<float> end;
    /// The side on which the outline is; pieces on the other side run backwards.
    bool flag;
};

struct SegmentChain
{
    /// A closed chain repeats its first point at the end.
    FlatRing points;
    bool flag;
    bool isClosed;
};

/// Joins segments of one side into chains: each begins with the first segment that is left and goes
/// on with the first one left that starts where it ends, until it is back at its start or there is
/// none.
class SegmentChains
{
public:
    /// poll  borrowed; what it throws passes
    SegmentChains(std::vector<DirectedSegment> segments, WorkPoll const& poll);

    /// The next chain, while there are segments.
    std::optional<SegmentChain> next();

private:
    std::optional<std::size_t> firstPlaceOf(UPoint2<float> const& start, bool flag) const;
    std::optional<std::size_t> takeSuccessor(UPoint2<float> const& end, bool flag);

    std::vector<DirectedSegment> m_segments;
    /// By side and start, then by place, so that equal starts stand together in their order.
    std::vector<std::size_t> m_byStart;
    /// Those of one start are taken in their order, so at the place of the first of them it stands
    /// how many are gone.
    std::vector<std::size_t> m_gone;
    std::vector<bool> m_isTaken;
    std::size_t m_first = 0;
    PollSteps m_polling;
};

}  // namespace Freecut
