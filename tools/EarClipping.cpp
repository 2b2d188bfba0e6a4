// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/EarClipping.h"

#include "tools/LoopPoints.h"

#include <queue>

#include <functional>

namespace Freecut {

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<float>;
using Index = std::uint32_t;

/// Finds the first ear again and again without asking twice what cannot have changed.
///
/// Points only ever leave the loop. So a corner that is not convex stays so until one of its
/// neighbours leaves, and one that is blocked stays blocked until a neighbour or the point that
/// blocks it leaves. The corners before the first one that has to be asked are known to be no ears.
class EarClipper
{
public:
    EarClipper(Ring const& points, Vector const& direction)
        : m_points(points),
          m_direction(direction),
          m_left(points),
          m_count(points.size()),
          m_next(points.size()),
          m_previous(points.size()),
          m_isGone(points.size()),
          m_blocked(points.size()),
          m_isAsked(points.size())
    {
        for (std::size_t i = 0; i < m_count; ++i) {
            m_next[i] = Index((i + 1) % m_count);
            m_previous[i] = Index((i + m_count - 1) % m_count);
            ask(Index(i));
        }
    }

    std::vector<std::array<Index, 3>> run()
    {
        std::vector<std::array<Index, 3>> ears;
        if (m_count < 3)
            return ears;
        ears.reserve(m_count - 2);
        while (m_count > 3) {
            if (m_asked.empty())
                return ears;
            Index const corner = m_asked.top();
            m_asked.pop();
            m_isAsked[corner] = false;
            if (m_isGone[corner] || !isEar(corner))
                continue;
            ears.push_back({m_previous[corner], corner, m_next[corner]});
            remove(corner);
        }
        Index const first = firstLeft();
        ears.push_back({first, m_next[first], m_previous[first]});
        return ears;
    }

private:
    bool isEar(Index corner)
    {
        Point const& previous = m_points[m_previous[corner]];
        Point const& at = m_points[corner];
        Point const& next = m_points[m_next[corner]];
        Vector const e1 = (at - previous).Normalize();
        Vector const e2 = (next - at).Normalize();
        if (!(((e1 * e2) | m_direction) > 0))
            return false;
        std::optional<Index> const blocking = m_left.findInside(previous, at, next);
        if (blocking)
            m_blocked[*blocking].push_back(corner);
        return !blocking;
    }

    void remove(Index corner)
    {
        Index const previous = m_previous[corner];
        Index const next = m_next[corner];
        m_next[previous] = next;
        m_previous[next] = previous;
        m_isGone[corner] = true;
        m_left.remove(corner);
        --m_count;
        ask(previous);
        ask(next);
        for (Index const blocked : m_blocked[corner])
            ask(blocked);
    }

    void ask(Index corner)
    {
        if (m_isAsked[corner])
            return;
        m_isAsked[corner] = true;
        m_asked.push(corner);
    }

    Index firstLeft() const
    {
        Index first = 0;
        while (m_isGone[first])
            ++first;
        return first;
    }

    Ring const& m_points;
    Vector m_direction;
    LoopPoints m_left;
    std::size_t m_count;
    std::vector<Index> m_next;
    std::vector<Index> m_previous;
    std::vector<bool> m_isGone;
    /// The corners that were found blocked by a point.
    std::vector<std::vector<Index>> m_blocked;
    std::vector<bool> m_isAsked;
    /// The corners to ask, the first one in the loop on top; asking once more does no harm.
    std::priority_queue<Index, std::vector<Index>, std::greater<Index>> m_asked;
};

}  // namespace

std::vector<std::array<std::uint32_t, 3>> earsOfLoop(Ring const& points,
                                                     UVector3<float> const& direction)
{
    return EarClipper(points, direction).run();
}

Loops triangulateLoop(Ring points, UVector3<float> const& direction)
{
    Loops triangles;
    for (auto const& [a, b, c] : earsOfLoop(points, direction))
        triangles.push_back({points[a], points[b], points[c]});
    return triangles;
}

bool isPointInTriangle(Point const& a, Point const& b, Point const& c, Point const& p)
{
    if (p == a || p == b || p == c)
        return false;
    Vector const c1 = (b - a) * (p - a);
    Vector const c2 = (c - b) * (p - b);
    Vector const c3 = (a - c) * (p - c);
    return (c1 | c2) > 0 && (c1 | c3) > 0 && (c2 | c3) > 0;
}

}  // namespace Freecut
