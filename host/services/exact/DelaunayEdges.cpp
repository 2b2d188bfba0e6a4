// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/DelaunayEdges.h"

#include <algorithm>
#include <tuple>

namespace Exact {

bool DelaunayEdges::isBefore(Axis axis, FlatPlace const& a, FlatPlace const& b)
{
    if (axis == Axis::across)
        return a[0] < b[0] || (a[0] == b[0] && a[1] < b[1]);
    // The plane a quarter turned, not mirrored.
    return a[1] < b[1] || (a[1] == b[1] && a[0] > b[0]);
}

std::optional<DelaunayEdges::Edge> DelaunayEdges::run()
{
    if (m_points.size() < 2)
        return {};
    m_edges.reserve(6 * m_points.size());
    order(0, m_points.size(), Axis::across);
    return triangulate(0, m_points.size(), Axis::across).first;
}

void DelaunayEdges::poll()
{
    constexpr std::size_t interval = 16384;
    if (++m_steps % interval == 0 && m_progress)
        m_progress(int(100 * m_done / m_points.size()));
}

/// Halves the points again and again; two or three that are left are sorted.
void DelaunayEdges::order(std::size_t begin, std::size_t end, Axis axis)
{
    auto const at = [&](std::size_t i) { return m_points.begin() + std::ptrdiff_t(i); };
    auto const isLess = [axis](Point const& a, Point const& b) {
        return isBefore(axis, a.place, b.place);
    };
    if (end - begin <= 3) {
        std::sort(at(begin), at(end), isLess);
        return;
    }
    std::size_t const middle = begin + (end - begin) / 2;
    std::nth_element(at(begin), at(middle), at(end), isLess);
    if (end - begin > 16384 && m_progress)
        m_progress(0);
    order(begin, middle, other(axis));
    order(middle, end, other(axis));
}

/// Points in one place are neighbours in the order of the axis that parts them: two of the few that are
/// left at the end, or the last of one half and the first of the other.
void DelaunayEdges::expectDistinct(std::uint32_t a, std::uint32_t b) const
{
    if (placeOf(a) == placeOf(b))
        throw CoincidingPoints();
}

DelaunayEdges::Hull DelaunayEdges::triangulate(std::size_t begin, std::size_t end, Axis axis)
{
    if (end - begin <= 3) {
        m_done += end - begin;
        for (std::size_t i = begin + 1; i < end; ++i)
            expectDistinct(std::uint32_t(i - 1), std::uint32_t(i));
        return end - begin == 2 ? ofTwo(begin) : ofThree(begin);
    }
    std::size_t const middle = begin + (end - begin) / 2;
    Hull const left = seenFrom(axis, triangulate(begin, middle, other(axis)));
    Hull const right = seenFrom(axis, triangulate(middle, end, other(axis)));
    return merge(left, right);
}

DelaunayEdges::Hull DelaunayEdges::ofTwo(std::size_t begin)
{
    auto const p = std::uint32_t(begin);
    Edge const edge = m_edges.add(p, p + 1);
    return {edge, PlaneEdges::turned(edge)};
}

DelaunayEdges::Hull DelaunayEdges::ofThree(std::size_t begin)
{
    auto const p = std::uint32_t(begin);
    Edge const a = m_edges.add(p, p + 1);
    Edge const b = m_edges.add(p + 1, p + 2);
    m_edges.splice(PlaneEdges::turned(a), b);
    int const turn = orientation(p, p + 1, p + 2);
    if (turn == 0)
        return {a, PlaneEdges::turned(b)};
    Edge const c = m_edges.connect(b, a);
    return turn > 0 ? Hull{a, PlaneEdges::turned(b)} : Hull{PlaneEdges::turned(c), c};
}

/// Of the edges that run around some points anticlockwise, the one that leaves the best point. The
/// points around become better up to that one and worse from there on, whichever way one goes.
template <typename Better>
DelaunayEdges::Edge DelaunayEdges::bestOnHull(Edge edge, Better const& isBetter) const
{
    auto const placeFrom = [this](Edge e) -> FlatPlace const& { return placeOf(m_edges.from(e)); };
    auto const before = [this](Edge e) { return PlaneEdges::turned(m_edges.previous(e)); };
    for (Edge e = m_edges.nextOnRight(edge); isBetter(placeFrom(e), placeFrom(edge));
         e = m_edges.nextOnRight(e))
        edge = e;
    for (Edge e = before(edge); isBetter(placeFrom(e), placeFrom(edge)); e = before(e))
        edge = e;
    return edge;
}

DelaunayEdges::Hull DelaunayEdges::seenFrom(Axis axis, Hull const& hull) const
{
    Edge const first = bestOnHull(hull.first, [axis](FlatPlace const& a, FlatPlace const& b) {
        return isBefore(axis, a, b);
    });
    Edge const last =
        bestOnHull(m_edges.next(hull.last),
                   [axis](FlatPlace const& a, FlatPlace const& b) { return isBefore(axis, b, a); });
    return {first, m_edges.previous(last)};
}

/// Merges two triangulations of which the one lies before the other.
DelaunayEdges::Hull DelaunayEdges::merge(Hull left, Hull right)
{
    Edge fromLeft = left.last, fromRight = right.first;
    expectDistinct(m_edges.from(fromLeft), m_edges.from(fromRight));
    for (;;) {
        if (isLeftOf(m_edges.from(fromRight), fromLeft))
            fromLeft = m_edges.nextOnLeft(fromLeft);
        else if (isRightOf(m_edges.from(fromLeft), fromRight))
            fromRight = m_edges.nextOnRight(fromRight);
        else
            break;
    }
    Edge const base = m_edges.connect(PlaneEdges::turned(fromRight), fromLeft);
    if (m_edges.from(fromLeft) == m_edges.from(left.first))
        left.first = PlaneEdges::turned(base);
    if (m_edges.from(fromRight) == m_edges.from(right.last))
        right.last = base;
    closeUp(base);
    return {left.first, right.last};
}

/// Rises from the lower common tangent, which runs from right to left, to the upper one.
void DelaunayEdges::closeUp(Edge base)
{
    auto const isAbove = [&](Edge e) { return isRightOf(m_edges.to(e), base); };
    auto const isTooNear = [&](Edge e, Edge beyond) {
        return isInCircle(m_edges.to(base), m_edges.from(base), m_edges.to(e), m_edges.to(beyond));
    };
    for (;;) {
        poll();
        Edge left = m_edges.next(PlaneEdges::turned(base));
        bool const isLeft = isAbove(left);
        while (isLeft && isTooNear(left, m_edges.next(left))) {
            Edge const beyond = m_edges.next(left);
            m_edges.remove(left);
            left = beyond;
        }
        Edge right = m_edges.previous(base);
        bool const isRight = isAbove(right);
        while (isRight && isTooNear(right, m_edges.previous(right))) {
            Edge const beyond = m_edges.previous(right);
            m_edges.remove(right);
            right = beyond;
        }
        if (!isLeft && !isRight)
            return;
        bool const takesRight =
            !isLeft || (isRight && isInCircle(m_edges.to(left), m_edges.from(left),
                                              m_edges.from(right), m_edges.to(right)));
        base = takesRight ? m_edges.connect(right, PlaneEdges::turned(base))
                          : m_edges.connect(PlaneEdges::turned(base), PlaneEdges::turned(left));
    }
}

}  // namespace Exact
