// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/SurplusContours.h"

#include "host/mesh/DisjointSets.h"

#include <array>
#include <map>

namespace {

using Segments = std::vector<Exact::SectionSegment>;
using Vector = UVector3<double>;

/// A way from one point along contours, until they part.
struct Way
{
    std::vector<std::size_t> segments;
    std::uint32_t end = 0;
    /// Twice the area between the way and the straight line from its end to its beginning.
    Vector area;
};

class Surplus
{
public:
    Surplus(Segments& segments, SectionPoints const& points)
        : m_segments(segments), m_points(points), m_degrees(points.size(), 0)
    {
        for (Exact::SectionSegment const& s : segments) {
            m_degrees[s.from] += s.weight;
            m_degrees[s.to] += s.weight;
        }
    }

    bool isAny() const
    {
        for (int const degree : m_degrees)
            if (degree % 2 != 0)
                return true;
        return false;
    }

    void dropDoubles()
    {
        for (Exact::SectionSegment& s : m_segments)
            if (s.weight > 1 && m_degrees[s.from] % 2 != 0 && m_degrees[s.to] % 2 != 0)
                lower(s);
    }

    void dropWalls()
    {
        for (auto const& [component, ends] : oddPoints())
            if (ends.size() == 2 && m_degrees[ends[0]] == 3 && m_degrees[ends[1]] == 3)
                dropWall(ends[0], ends[1]);
    }

private:
    void lower(Exact::SectionSegment& segment)
    {
        --segment.weight;
        --m_degrees[segment.from];
        --m_degrees[segment.to];
    }

    /// By component, the points at which an odd number of contours meet.
    std::map<std::uint32_t, std::vector<std::uint32_t>> oddPoints() const
    {
        DisjointSets components(m_points.size());
        for (Exact::SectionSegment const& s : m_segments)
            components.unite(s.from, s.to);
        std::map<std::uint32_t, std::vector<std::uint32_t>> ends;
        for (std::uint32_t p = 0; p < m_points.size(); ++p)
            if (m_degrees[p] % 2 != 0)
                ends[components.root(p)].push_back(p);
        return ends;
    }

    void dropWall(std::uint32_t from, std::uint32_t to)
    {
        listNeighbours();
        std::vector<Way> ways, loops;
        for (std::size_t const segment : m_at[from]) {
            Way way = wayFrom(from, segment);
            (way.end == to ? ways : loops).push_back(std::move(way));
        }
        if (ways.size() == 1)
            drop(ways[0]);
        else if (ways.size() == 3)
            drop(ways[leastEnclosing(ways)]);
    }

    void listNeighbours()
    {
        if (!m_at.empty())
            return;
        m_at.resize(m_points.size());
        for (std::size_t i = 0; i < m_segments.size(); ++i) {
            m_at[m_segments[i].from].push_back(i);
            m_at[m_segments[i].to].push_back(i);
        }
    }

    /// Goes on as long as there is one way to go.
    Way wayFrom(std::uint32_t start, std::size_t segment) const
    {
        Way way;
        std::uint32_t at = start;
        for (;;) {
            Exact::SectionSegment const& s = m_segments[segment];
            std::uint32_t const next = s.from == at ? s.to : s.from;
            way.segments.push_back(segment);
            way.area = way.area + offset(start, at) * offset(start, next);
            at = next;
            if (m_at[at].size() != 2 || m_degrees[at] != 2)
                break;
            segment = m_at[at][0] == segment ? m_at[at][1] : m_at[at][0];
        }
        way.end = at;
        return way;
    }

    Vector offset(std::uint32_t from, std::uint32_t to) const
    {
        UPoint3<float> const &a = m_points.place(from), &b = m_points.place(to);
        return {double(b.X()) - a.X(), double(b.Y()) - a.Y(), double(b.Z()) - a.Z()};
    }

    static std::size_t leastEnclosing(std::vector<Way> const& ways)
    {
        std::size_t best = 0;
        double most = -1;
        for (std::size_t i = 0; i < 3; ++i) {
            Vector const enclosed = ways[(i + 1) % 3].area - ways[(i + 2) % 3].area;
            if (double const size = enclosed | enclosed; size > most) {
                most = size;
                best = i;
            }
        }
        return best;
    }

    void drop(Way const& way)
    {
        for (std::size_t const segment : way.segments)
            lower(m_segments[segment]);
    }

    Segments& m_segments;
    SectionPoints const& m_points;
    std::vector<int> m_degrees;
    std::vector<std::vector<std::size_t>> m_at;
};

}  // namespace

void dropSurplus(Segments& segments, SectionPoints const& points)
{
    Surplus surplus(segments, points);
    if (!surplus.isAny())
        return;
    surplus.dropDoubles();
    surplus.dropWalls();
}
