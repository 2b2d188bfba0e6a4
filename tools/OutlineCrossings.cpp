// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/OutlineCrossings.h"

#include "tools/EdgeBoxes.h"
#include "tools/LoopNesting.h"
#include "tools/SegmentChains.h"
#include "tools/SegmentRelation.h"

#include <algorithm>
#include <cmath>

namespace Freecut {

namespace {

using Point = UPoint2<float>;

/// A crossing this near an end of an edge is none.
constexpr double nearness = 0.001;

double distanceOf(Point const& a, Point const& b)
{
    return std::hypot(double(a.X()) - b.X(), double(a.Y()) - b.Y());
}

/// The outline, and for each edge its first point and the crossings on it.
class SplitEdges
{
public:
    SplitEdges(FlatRing const& outline, WorkPoll const& poll)
        : m_points(outline), m_lists(outline.size()), m_polling(poll)
    {
        for (std::size_t i = 0; i < count(); ++i)
            m_lists[i].push_back(outline[i]);
    }

    /// Finds all crossings and puts those of each edge in order. Returns false, unfinished, if
    /// there are too many.
    bool split()
    {
        EdgeBoxes const boxes(m_points);
        for (std::size_t i = 0; i < count(); ++i)
            if (boxes.findNear(i, i + 2, [&](std::size_t j) {
                    m_polling.step();
                    addCrossing(i, j);
                    return m_crossings > mostCrossings;
                }))
                return false;
        for (FlatRing& list : m_lists) {
            m_polling.step(list.size());
            sortByDistance(list);
        }
        return true;
    }

    std::vector<DirectedSegment> directedSegments()
    {
        std::vector<DirectedSegment> segments;
        bool flag = true;
        auto const add = [&](Point const& from, Point const& to) {
            segments.push_back(flag ? DirectedSegment{from, to, true}
                                    : DirectedSegment{to, from, false});
        };
        for (std::size_t i = 0; i < count(); ++i) {
            FlatRing const& list = m_lists[i];
            m_polling.step(list.size());
            for (std::size_t k = 0; k + 1 < list.size(); ++k) {
                add(list[k], list[k + 1]);
                flag = !flag;
            }
            add(list.back(), after(i));
        }
        return segments;
    }

private:
    std::size_t count() const { return m_points.size(); }
    Point const& before(std::size_t i) const { return m_points[(i + count() - 1) % count()]; }
    Point const& at(std::size_t i) const { return m_points[i]; }
    Point const& after(std::size_t i) const { return m_points[(i + 1) % count()]; }
    Point const& afterNext(std::size_t i) const { return m_points[(i + 2) % count()]; }

    void addCrossing(std::size_t i, std::size_t j)
    {
        Point p1, p2;
        int const code = segmentRelation(at(i), after(i), at(j), after(j), p1, p2);
        if (code == 1) {
            for (Point const& end : {at(i), after(i), at(j), after(j)})
                if (!(distanceOf(p1, end) > nearness))
                    return;
        } else if (passesThrough(code, i, j)) {
            p1 = (p1 + p2) / 2.0f;
        } else {
            return;
        }
        m_lists[i].push_back(p1);
        m_lists[j].push_back(p1);
        ++m_crossings;
    }

    /// Whether the outline goes from one side to the other where edges i and j touch twice.
    bool passesThrough(int code, std::size_t i, std::size_t j) const
    {
        switch (code) {
            case -4:
                return hasNeighboursOnBothSides(j);
            case -14:
                return hasNeighboursOnBothSides(i);
            case -6:
                return crosses(before(j), at(j), before(i), at(i));
            case -10:
                return crosses(before(j), at(j), after(i), afterNext(i));
            case -8:
                return crosses(after(j), afterNext(j), before(i), at(i));
            case -12:
                return crosses(after(j), afterNext(j), after(i), afterNext(i));
            default:
                return false;
        }
    }

    bool hasNeighboursOnBothSides(std::size_t i) const
    {
        return turnOf(at(i), after(i), before(i)) * turnOf(at(i), after(i), afterNext(i)) < 0;
    }

    static bool crosses(Point const& a, Point const& b, Point const& c, Point const& d)
    {
        Point p1, p2;
        return segmentRelation(a, b, c, d, p1, p2) == 1;
    }

    static void sortByDistance(FlatRing& list)
    {
        if (list.size() <= 2)
            return;
        Point const first = list.front();
        std::stable_sort(list.begin() + 1, list.end(), [&](Point const& a, Point const& b) {
            return distanceOf(first, a) < distanceOf(first, b);
        });
    }

    FlatRing const& m_points;
    FlatLoops m_lists;
    std::size_t m_crossings = 0;
    PollSteps m_polling;
};

}  // namespace

ResolvedLoops resolveSelfIntersections(FlatRing const& outline, WorkPoll const& poll)
{
    ResolvedLoops loops;
    if (outline.empty())
        return loops;
    SplitEdges edges(outline, poll);
    if (!edges.split()) {
        loops.isTooComplicated = true;
        return loops;
    }
    SegmentChains chains(edges.directedSegments(), poll);
    while (std::optional<SegmentChain> chain = chains.next()) {
        if (chain->points.size() <= 2)
            continue;
        bool const isSolid = chain->isClosed && chain->flag;
        (isSolid ? loops.solid : loops.residual).push_back(std::move(chain->points));
    }
    moveNestedLoops(loops.solid, loops.residual, poll);
    return loops;
}

}  // namespace Freecut
