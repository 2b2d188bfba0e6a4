// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

namespace Exact {

/// The edges of a subdivision of the plane. An edge is two directed ones, e and e ^ 1; each knows
/// the next and the previous one, anticlockwise, around the point where it begins.
///
/// After Guibas and Stolfi, "Primitives for the manipulation of general subdivisions and the
/// computation of Voronoi diagrams", 1985, without the edges of the dual.
class PlaneEdges
{
public:
    using Edge = std::uint32_t;

    void reserve(std::size_t directedCount) { m_edges.reserve(directedCount); }
    /// Of the directed edges, those that were taken out among them.
    std::size_t size() const { return m_edges.size(); }

    static Edge turned(Edge e) { return e ^ 1; }
    std::uint32_t from(Edge e) const { return m_edges[e].from; }
    std::uint32_t to(Edge e) const { return m_edges[turned(e)].from; }
    Edge next(Edge e) const { return m_edges[e].next; }
    Edge previous(Edge e) const { return m_edges[e].previous; }
    /// The edge that follows around the face on the left.
    Edge nextOnLeft(Edge e) const { return previous(turned(e)); }
    /// The edge that begins where this ends and has the same face on its right.
    Edge nextOnRight(Edge e) const { return next(turned(e)); }
    bool isThere(Edge e) const { return m_edges[e].from != nowhere; }

    /// A new edge that hangs together with nothing.
    Edge add(std::uint32_t from, std::uint32_t to)
    {
        Edge e = Edge(m_edges.size());
        if (m_free.empty()) {
            m_edges.resize(m_edges.size() + 2);
        } else {
            e = m_free.back();
            m_free.pop_back();
        }
        m_edges[e] = {from, e, e};
        m_edges[e ^ 1] = {to, e ^ 1, e ^ 1};
        return e;
    }

    /// Joins the rings around two points, or parts one.
    void splice(Edge a, Edge b)
    {
        Edge const afterA = next(a), afterB = next(b);
        m_edges[a].next = afterB;
        m_edges[afterB].previous = a;
        m_edges[b].next = afterA;
        m_edges[afterA].previous = b;
    }

    /// A new edge from the end of `a` to the beginning of `b`, all with the same face on their left.
    Edge connect(Edge a, Edge b)
    {
        Edge const e = add(to(a), from(b));
        splice(e, nextOnLeft(a));
        splice(turned(e), b);
        return e;
    }

    void remove(Edge e)
    {
        splice(e, previous(e));
        splice(turned(e), previous(turned(e)));
        m_edges[e].from = m_edges[turned(e)].from = nowhere;
        m_free.push_back(e & ~Edge(1));
    }

private:
    static constexpr std::uint32_t nowhere = 0xffffffff;

    struct Directed
    {
        std::uint32_t from = nowhere;
        Edge next = 0;
        Edge previous = 0;
    };

    std::vector<Directed> m_edges;
    std::vector<Edge> m_free;
};

}  // namespace Exact
