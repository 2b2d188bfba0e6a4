// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/SheetOrder.h"

#include "host/mesh/ExactSigns.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>

namespace {

using Point = UPoint3<float>;
using Corners = MeshArrays::Corners;

/// A triangle's half of the plane on one side of a segment.
struct Sheet
{
    std::uint32_t triangle;
    Point apex;
    /// By how much the winding number changes where one passes the sheet anticlockwise around the
    /// segment: -1 if the region lies on the left of the segment, 1 if on its right.
    int change;
    int quadrant = 0;
    /// Winding numbers of both operands on the clockwise and on the anticlockwise side.
    std::array<int, 2> before{};
    std::array<int, 2> after{};
};

/// The line of a segment, through two vertices.
struct Axis
{
    Point from;
    Point to;
};

/// A triangle edge with one triangle at it, for finding all that share an edge.
struct EdgeUse
{
    std::uint32_t low;
    std::uint32_t high;
    std::uint32_t triangle;
    auto operator<=>(EdgeUse const&) const = default;
};

class SheetOrder
{
public:
    SheetOrder(OperandSoup const& soup, CurveNetwork const& network, SideSeeds& seeds)
        : m_soup(soup), m_network(network), m_seeds(seeds)
    {}

    bool run()
    {
        std::vector<CurveSegment const*> alongEdges;
        for (CurveSegment const& segment : m_network.segments())
            if (segment.isAlongEdge())
                alongEdges.push_back(&segment);
            else
                addPlain(segment);
        if (alongEdges.empty())
            return true;
        collectEdges();
        auto const key = [](CurveSegment const* s) {
            return std::pair(std::min(s->from, s->to), std::max(s->from, s->to));
        };
        std::stable_sort(alongEdges.begin(), alongEdges.end(),
                         [&](auto const* a, auto const* b) { return key(a) < key(b); });
        for (auto begin = alongEdges.begin(); begin != alongEdges.end();) {
            auto const end = std::find_if(begin, alongEdges.end(), [&](CurveSegment const* s) {
                return key(s) != key(*begin);
            });
            if (!addSorted({begin, end}))
                return false;
            begin = end;
        }
        return true;
    }

private:
    using Group = std::vector<CurveSegment const*>;

    void addPlain(CurveSegment const& s)
    {
        m_seeds.ofFirst.push_back({s.triangles[0], s.from, s.to, 1, 1});
        m_seeds.ofFirst.push_back({s.triangles[0], s.to, s.from, 0, 0});
        m_seeds.ofSecond.push_back({s.triangles[1], s.from, s.to, 0, 0});
        m_seeds.ofSecond.push_back({s.triangles[1], s.to, s.from, 1, 1});
        m_seeds.endsOfSecond.push_back(std::uint32_t(m_seeds.ofSecond.size()));
    }

    void collectEdges()
    {
        for (Facets::End const& face : m_network.facets().ends) {
            Corners const& c = m_soup.corners(face.triangle);
            for (std::size_t k = 0; k < 3; ++k) {
                auto const [low, high] = std::minmax(c[k], c[(k + 1) % 3]);
                m_edges.push_back({low, high, face.triangle});
            }
        }
        std::sort(m_edges.begin(), m_edges.end());
    }

    /// The vertices of the edge along which a segment runs.
    static std::pair<std::uint32_t, std::uint32_t> edgeOf(OperandSoup const& soup,
                                                          CurveSegment const& s)
    {
        std::size_t const o = s.edges[0] != CurveSegment::inside ? 0 : 1;
        Corners const& c = soup.corners(s.triangles[o]);
        return {c[std::size_t(s.edges[o])], c[std::size_t((s.edges[o] + 1) % 3)]};
    }

    /// The line of a segment, from its lower point number to the higher one.
    Axis axisOf(CurveSegment const& s) const
    {
        auto const [a, b] = edgeOf(m_soup, s);
        Point const p = m_soup.mesh.points[a], q = m_soup.mesh.points[b];
        int axis = 0;
        for (int k = 1; k < 3; ++k)
            if (std::abs(double(q[k]) - p[k]) > std::abs(double(q[axis]) - p[axis]))
                axis = k;
        int const way = m_network.compare(std::min(s.from, s.to), std::max(s.from, s.to), axis);
        bool const isAlong = (q[axis] > p[axis]) == (way > 0);
        return isAlong ? Axis{p, q} : Axis{q, p};
    }

    bool addSorted(Group const& group)
    {
        Axis const axis = axisOf(*group.front());
        m_sheets.clear();
        for (CurveSegment const* const segment : group)
            for (std::size_t o = 0; o < 2; ++o)
                addSheets(*segment, o, axis);
        sortSheets(axis);
        if (!countAround(axis))
            return false;
        std::uint32_t const low = std::min(group.front()->from, group.front()->to);
        std::uint32_t const high = std::max(group.front()->from, group.front()->to);
        for (Sheet const& sheet : m_sheets)
            addSeed(sheet, low, high);
        m_seeds.endsOfSecond.push_back(std::uint32_t(m_seeds.ofSecond.size()));
        return true;
    }

    void addSheets(CurveSegment const& s, std::size_t operand, Axis const& axis)
    {
        std::uint32_t const triangle = s.triangles[operand];
        if (s.edges[operand] == CurveSegment::inside) {
            addHalves(triangle, axis);
            return;
        }
        Corners const& c = m_soup.corners(triangle);
        auto const [low, high] = std::minmax(c[std::size_t(s.edges[operand])],
                                             c[std::size_t((s.edges[operand] + 1) % 3)]);
        auto use = std::lower_bound(m_edges.begin(), m_edges.end(), EdgeUse{low, high, 0});
        for (; use != m_edges.end() && use->low == low && use->high == high; ++use)
            addAtEdge(use->triangle, low, high, axis);
    }

    void add(std::uint32_t triangle, Point const& apex, int change)
    {
        for (Sheet const& sheet : m_sheets)
            if (sheet.triangle == triangle && sheet.change == change)
                return;
        m_sheets.push_back({triangle, apex, change});
    }

    void addAtEdge(std::uint32_t triangle, std::uint32_t low, std::uint32_t high, Axis const& axis)
    {
        Corners const& c = m_soup.corners(triangle);
        Point const from = m_soup.mesh.points[low], to = m_soup.mesh.points[high];
        bool isAlong = true;
        for (int k = 0; k < 3; ++k)
            if (to[k] != from[k])
                isAlong = (to[k] > from[k]) == (axis.to[k] > axis.from[k]);
        for (std::size_t k = 0; k < 3; ++k) {
            if (c[k] == low || c[k] == high)
                continue;
            bool const runsUp = c[(k + 1) % 3] == low;
            add(triangle, m_soup.mesh.points[c[k]], runsUp == isAlong ? -1 : 1);
        }
    }

    /// A triangle that the segment passes through has a sheet on either side.
    void addHalves(std::uint32_t triangle, Axis const& axis)
    {
        auto const point = [&](int k) { return m_soup.mesh.point(triangle, k); };
        for (int dropped = 0; dropped < 3; ++dropped) {
            int const facing = ExactSigns::orient2d(point(0), point(1), point(2), dropped);
            if (facing == 0)
                continue;
            for (int k = 0; k < 3; ++k) {
                int const side =
                    facing * ExactSigns::orient2d(axis.from, axis.to, point(k), dropped);
                if (side != 0)
                    add(triangle, point(k), side > 0 ? -1 : 1);
            }
            return;
        }
    }

    /// Whether two points in one plane with the axis lie on the same side of it.
    static bool areOnOneSide(Axis const& axis, Point const& a, Point const& b)
    {
        for (int dropped = 0; dropped < 3; ++dropped) {
            int const sign = ExactSigns::orient2d(axis.from, axis.to, a, dropped);
            if (sign != 0)
                return sign == ExactSigns::orient2d(axis.from, axis.to, b, dropped);
        }
        return true;
    }

    /// 1 if b follows a anticlockwise within half a turn.
    static int turn(Axis const& axis, Point const& a, Point const& b)
    {
        return ExactSigns::orient3d(axis.from, axis.to, a, b);
    }

    void sortSheets(Axis const& axis)
    {
        Point const reference = m_sheets.front().apex;
        for (Sheet& sheet : m_sheets) {
            int const side = turn(axis, reference, sheet.apex);
            sheet.quadrant = side > 0                                    ? 1
                             : side < 0                                  ? 3
                             : areOnOneSide(axis, reference, sheet.apex) ? 0
                                                                         : 2;
        }
        std::stable_sort(m_sheets.begin(), m_sheets.end(), [&](Sheet const& a, Sheet const& b) {
            if (a.quadrant != b.quadrant)
                return a.quadrant < b.quadrant;
            return a.quadrant % 2 == 1 && turn(axis, a.apex, b.apex) > 0;
        });
    }

    std::size_t operandOf(Sheet const& sheet) const
    {
        return std::size_t(m_soup.operandOf(sheet.triangle));
    }

    /// Counts the winding numbers around the axis. Returns false if they do not close.
    bool countAround(Axis const& axis)
    {
        std::array<int, 2> winding{};
        std::array<int, 2> lowest{};
        for (std::size_t begin = 0; begin < m_sheets.size();) {
            std::size_t end = begin + 1;
            auto const isTogether = [&](Sheet const& s) {
                return s.quadrant == m_sheets[begin].quadrant &&
                       (s.quadrant % 2 == 0 || turn(axis, m_sheets[begin].apex, s.apex) == 0);
            };
            while (end < m_sheets.size() && isTogether(m_sheets[end]))
                ++end;
            std::array<int, 2> const before = winding;
            for (std::size_t i = begin; i < end; ++i)
                winding[operandOf(m_sheets[i])] += m_sheets[i].change;
            for (std::size_t i = begin; i < end; ++i) {
                m_sheets[i].before = before;
                m_sheets[i].after = winding;
            }
            for (std::size_t o = 0; o < 2; ++o)
                lowest[o] = std::min(lowest[o], winding[o]);
            begin = end;
        }
        for (Sheet& sheet : m_sheets)
            for (std::size_t o = 0; o < 2; ++o) {
                sheet.before[o] -= lowest[o];
                sheet.after[o] -= lowest[o];
            }
        return winding == std::array<int, 2>{};
    }

    void addSeed(Sheet const& sheet, std::uint32_t low, std::uint32_t high)
    {
        bool const isLeft = sheet.change < 0;
        std::size_t const own = operandOf(sheet);
        int const ahead = isLeft ? sheet.after[1 - own] : sheet.before[1 - own];
        int const back = isLeft ? sheet.before[1 - own] : sheet.after[1 - own];
        SideSeed const seed{sheet.triangle, isLeft ? low : high, isLeft ? high : low, ahead, back};
        (own == 0 ? m_seeds.ofFirst : m_seeds.ofSecond).push_back(seed);
    }

    OperandSoup const& m_soup;
    CurveNetwork const& m_network;
    SideSeeds& m_seeds;
    std::vector<EdgeUse> m_edges;
    std::vector<Sheet> m_sheets;
};

}  // namespace

bool findSideSeeds(OperandSoup const& soup, CurveNetwork const& network, SideSeeds& seeds)
{
    return SheetOrder(soup, network, seeds).run();
}
