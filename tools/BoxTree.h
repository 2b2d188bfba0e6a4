// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace Freecut {

/// An upright box in a plane, its edges included. No number counts as everywhere.
struct FlatBox
{
    double lowX, lowY, highX, highY;

    bool meets(FlatBox const& o) const
    {
        return !(lowX > o.highX || o.lowX > highX || lowY > o.highY || o.lowY > highY);
    }
    void add(FlatBox const& o)
    {
        lowX = std::min(lowX, o.lowX);
        lowY = std::min(lowY, o.lowY);
        highX = std::max(highX, o.highX);
        highY = std::max(highY, o.highY);
    }
};

/// Boxes in blocks of neighbours, and blocks in blocks, so that those that meet a box are found
/// without looking at all. It serves best where boxes near each other in the list are near each
/// other in the plane.
class BoxTree
{
public:
    /// boxes  whose bounds are numbers, infinite ones included
    explicit BoxTree(std::vector<FlatBox> boxes);

    bool isEmpty() const { return m_levels.front().empty(); }
    FlatBox const& box(std::size_t index) const { return m_levels.front()[index]; }
    /// The box around all; there is one.
    FlatBox const& bounds() const { return m_levels.back().front(); }

    /// Calls `visit` with the index of each box from `first` on that meets the given one, in rising
    /// order, until a call returns true. Returns whether one did.
    template <typename Visit>
    bool findMeeting(FlatBox const& wanted, std::size_t first, Visit const& visit) const
    {
        return !isEmpty() && findIn(m_levels.size() - 1, 0, wanted, first, visit);
    }

private:
    static constexpr std::size_t blockSize = 16;

    template <typename Visit>
    bool findIn(std::size_t level, std::size_t at, FlatBox const& wanted, std::size_t first,
                Visit const& visit) const
    {
        if (!wanted.meets(m_levels[level][at]))
            return false;
        if (level == 0)
            return visit(at);
        std::size_t const end = std::min((at + 1) * blockSize, m_levels[level - 1].size());
        for (std::size_t below = std::max(at * blockSize, firstOn(level - 1, first)); below < end;
             ++below)
            if (findIn(level - 1, below, wanted, first, visit))
                return true;
        return false;
    }

    /// The first block of a level that holds boxes from `first` on.
    static std::size_t firstOn(std::size_t level, std::size_t first)
    {
        for (; level > 0; --level)
            first /= blockSize;
        return first;
    }

    /// The boxes first, then the boxes around blocks of them, up to a single one.
    std::vector<std::vector<FlatBox>> m_levels;
};

}  // namespace Freecut
