// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/LoopNesting.h"

#include "tools/BoxTree.h"
#include "tools/SegmentRelation.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Freecut {

namespace {

using Point = UPoint2<float>;

/// A box around all points that an edge may touch or count for: the disk whose diameter the edge
/// is, with room for the tolerance and for rounding.
FlatBox reachOf(Point const& p, Point const& q)
{
    constexpr double far = std::numeric_limits<double>::infinity();
    double const x = (double(p.X()) + q.X()) / 2;
    double const y = (double(p.Y()) + q.Y()) / 2;
    double const radius = std::hypot(double(q.X()) - p.X(), double(q.Y()) - p.Y()) / 2;
    double const room = radius + 1 + 1e-6 * (std::abs(x) + std::abs(y) + radius);
    if (!std::isfinite(room))
        return {-far, -far, far, far};
    return {x - room, y - room, x + room, y + room};
}

std::vector<FlatBox> reachesOf(FlatRing const& loop)
{
    std::vector<FlatBox> boxes;
    for (std::size_t i = 0; i + 1 < loop.size(); ++i)
        boxes.push_back(reachOf(loop[i], loop[i + 1]));
    return boxes;
}

FlatBox pointBox(Point const& v)
{
    return {v.X(), v.Y(), v.X(), v.Y()};
}

/// A loop whose edges are found by place.
class LoopEdges
{
public:
    LoopEdges(FlatRing const& loop, PollSteps& polling)
        : m_loop(loop), m_tree(reachesOf(loop)), m_polling(polling)
    {
        m_polling.step(loop.size());
    }

    FlatBox const& bounds() const { return m_tree.bounds(); }

    bool touches(Point const& v) const
    {
        return m_tree.findMeeting(pointBox(v), 0, [&](std::size_t i) {
            m_polling.step();
            return liesBetween(v, m_loop[i], m_loop[i + 1]);
        });
    }

    /// By the edges that a ray to the right crosses.
    bool isAround(Point const& v) const
    {
        bool isOdd = false;
        FlatBox ray = pointBox(v);
        ray.highX = std::numeric_limits<double>::infinity();
        m_tree.findMeeting(ray, 0, [&](std::size_t i) {
            m_polling.step();
            isOdd ^= isCrossed(v, m_loop[i], m_loop[i + 1]);
            return false;
        });
        return isOdd;
    }

    bool encloses(FlatRing const& loop) const
    {
        auto const free =
            std::find_if(loop.begin(), loop.end(), [&](Point const& v) { return !touches(v); });
        return free == loop.end() || isAround(*free);
    }

private:
    static bool isCrossed(Point const& v, Point const& p, Point const& q)
    {
        if ((p.Y() > v.Y()) == (q.Y() > v.Y()))
            return false;
        double const share = (double(v.Y()) - p.Y()) / (double(q.Y()) - p.Y());
        return p.X() + share * (double(q.X()) - p.X()) > v.X();
    }

    FlatRing const& m_loop;
    BoxTree m_tree;
    PollSteps& m_polling;
};

/// The loops that lie within another one, in order.
std::vector<std::size_t> nestedLoops(FlatLoops const& loops, WorkPoll const& poll)
{
    PollSteps polling(poll);
    std::vector<LoopEdges> edges;
    edges.reserve(loops.size());
    for (FlatRing const& loop : loops)
        edges.emplace_back(loop, polling);
    std::vector<FlatBox> bounds;
    bounds.reserve(edges.size());
    for (LoopEdges const& loop : edges)
        bounds.push_back(loop.bounds());
    BoxTree const tree(std::move(bounds));
    std::vector<std::size_t> nested;
    for (std::size_t a = 0; a < loops.size(); ++a)
        // A loop whose first vertex is out of another one's reach is outside.
        if (tree.findMeeting(pointBox(loops[a].front()), 0, [&](std::size_t b) {
                polling.step();
                return a != b && edges[b].encloses(loops[a]);
            }))
            nested.push_back(a);
    return nested;
}

/// A point beyond the first one along an axis: the largest, or else the least; 0 if there is none.
std::size_t extremePoint(Ring const& points, int axis)
{
    std::size_t largest = 0;
    std::size_t least = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (points[i][axis] > points[largest][axis])
            largest = i;
        if (points[i][axis] < points[least][axis])
            least = i;
    }
    return largest > 0 ? largest : least;
}

}  // namespace

void moveNestedLoops(FlatLoops& solid, FlatLoops& residual, WorkPoll const& poll)
{
    if (solid.size() < 2)
        return;
    std::vector<std::size_t> const nested = nestedLoops(solid, poll);
    for (auto loop = nested.rbegin(); loop != nested.rend(); ++loop)
        residual.push_back(std::move(solid[*loop]));
    FlatLoops left;
    for (std::size_t i = 0, next = 0; i < solid.size(); ++i)
        if (next < nested.size() && nested[next] == i)
            ++next;
        else
            left.push_back(std::move(solid[i]));
    solid.swap(left);
}

bool isLoopCounterClockwise(Ring const& points, UVector3<float> const& direction)
{
    if (points.size() < 2)
        return false;
    std::size_t corner = 0;
    for (int const axis : {2, 1, 0})
        if (corner == 0)
            corner = extremePoint(points, axis);
    if (corner == 0)
        return false;
    UVector3<float> const forth = points[(corner + 1) % points.size()] - points[corner];
    UVector3<float> const back = points[corner - 1] - points[corner];
    return ((forth * back) | direction) > 0;
}

}  // namespace Freecut
