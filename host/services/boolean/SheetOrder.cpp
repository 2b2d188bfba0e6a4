// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/SheetOrder.h"

#include "host/mesh/ExactSigns.h"
#include "host/services/Polling.h"
#include "host/services/boolean/PlaceKey.h"
#include "host/services/boolean/SegmentCover.h"
#include "host/services/exact/PlaneSigns.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
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
    SheetStack stack = {};
    std::uint32_t stackNumber = 0;
    /// Whether it only counts for what lies around it: no segment divides the triangle here.
    bool isSilent = false;
};

/// The line of a segment, through two vertices or along two planes.
struct Axis
{
    Point from;
    Point to;
    /// Where no edge runs along the segment: a coordinate axis along which the segment is not at
    /// rest, and its way on it. Then only the planes of the sheets are known to meet in the line.
    int way = 0;
    int coordinate = 0;
    bool isOfPlanes() const { return way != 0; }
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
    using Visit = std::function<bool(std::span<SideSeed const>)>;

    SheetOrder(OperandSoup const& soup, CurveNetwork const& network, Visit const& visit,
               StageProgress& progress)
        : m_soup(soup),
          m_network(network),
          m_visit(visit),
          m_progress(progress),
          m_polling(progress)
    {}

    bool run()
    {
        findShared();
        std::vector<CurveSegment const*> shared;
        for (CurveSegment const& segment : m_network.segments())
            if (isShared(segment))
                shared.push_back(&segment);
            else if (!tellPlain(segment))
                return false;
        if (shared.empty())
            return true;
        collectEdges();
        auto const key = [](CurveSegment const* s) {
            return std::pair(std::min(s->from, s->to), std::max(s->from, s->to));
        };
        sortPolled<true>(shared, m_progress,
                         [&](auto const* a, auto const* b) { return key(a) < key(b); });
        for (auto begin = shared.begin(); begin != shared.end();) {
            auto const end = std::find_if(
                begin, shared.end(), [&](CurveSegment const* s) { return key(s) != key(*begin); });
            if (!tellSorted({begin, end}))
                return false;
            begin = end;
        }
        return true;
    }

private:
    using Group = std::vector<CurveSegment const*>;

    struct KeyHash
    {
        std::uint64_t operator()(std::uint64_t key) const { return mixBits(key); }
    };
    static std::uint64_t keyOf(CurveSegment const& s)
    {
        return std::uint64_t(std::min(s.from, s.to)) << 32 | std::max(s.from, s.to);
    }

    /// Counts the segments between the same two points.
    void findShared()
    {
        for (CurveSegment const& segment : m_network.segments()) {
            m_polling.step();
            std::uint32_t& count = m_counts[keyOf(segment)];
            count = count == m_counts.none ? 1 : count + 1;
        }
    }

    /// Whether more than two triangles may meet in a segment.
    bool isShared(CurveSegment const& segment) const
    {
        return segment.isAlongEdge() || m_counts.find(keyOf(segment)) > 1 ||
               !m_network.coplanarWith(segment.triangles[0]).empty() ||
               !m_network.coplanarWith(segment.triangles[1]).empty();
    }

    /// Both triangles pass through the segment: on the left of it the first lies behind the second,
    /// and the second in front of the first.
    bool tellPlain(CurveSegment const& s) const
    {
        std::size_t const a = operandOf(s.triangles[0]), b = operandOf(s.triangles[1]);
        // What is behind both, or behind one of them only.
        std::array<int, 2> both{}, first{}, second{};
        ++both[a], ++both[b], ++first[a], ++second[b];
        std::array<SideSeed, 4> const seeds{{{s.triangles[0], s.from, s.to, second, both, {}, 0},
                                             {s.triangles[0], s.to, s.from, {}, first, {}, 1},
                                             {s.triangles[1], s.from, s.to, {}, second, {}, 2},
                                             {s.triangles[1], s.to, s.from, first, both, {}, 3}}};
        return m_visit(seeds);
    }

    void collectEdges()
    {
        for (Facets::End const& face : m_network.facets().ends) {
            m_polling.step();
            Corners const& c = m_soup.corners(face.triangle);
            for (std::size_t k = 0; k < 3; ++k) {
                auto const [low, high] = std::minmax(c[k], c[(k + 1) % 3]);
                m_edges.push_back({low, high, face.triangle});
            }
        }
        sortPolled(m_edges, m_progress, std::less<>());
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
    Axis axisOf(Group const& group) const
    {
        auto const alongEdge = std::find_if(group.begin(), group.end(),
                                            [](auto const* s) { return s->isAlongEdge(); });
        if (alongEdge == group.end())
            return axisOfPlanes(*group.front());
        CurveSegment const& s = **alongEdge;
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

    Axis axisOfPlanes(CurveSegment const& s) const
    {
        Axis axis{};
        for (axis.coordinate = 0; axis.coordinate < 3; ++axis.coordinate) {
            axis.way =
                m_network.compare(std::min(s.from, s.to), std::max(s.from, s.to), axis.coordinate);
            if (axis.way != 0)
                break;
        }
        return axis;
    }

    bool tellSorted(Group const& group)
    {
        Axis const axis = axisOf(group);
        m_sheets.clear();
        for (CurveSegment const* const segment : group)
            for (std::size_t o = 0; o < 2; ++o)
                addSheets(*segment, o, axis);
        std::uint32_t const low = std::min(group.front()->from, group.front()->to);
        std::uint32_t const high = std::max(group.front()->from, group.front()->to);
        addCoplanar(low, high, axis);
        sortSheets(axis);
        if (!countAround(axis))
            return false;
        m_seeds.clear();
        for (Sheet const& sheet : m_sheets)
            if (!sheet.isSilent)
                m_seeds.push_back(seedOf(sheet, low, high));
        return m_visit(m_seeds);
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

    /// Adds what lies on a triangle of the second operand and has no contact here: the first
    /// operand is not divided where it crosses itself, and a surface may be folded within a plane.
    void addCoplanar(std::uint32_t low, std::uint32_t high, Axis const& axis)
    {
        std::size_t const known = m_sheets.size();
        for (std::size_t i = 0; i < known; ++i)
            for (auto const& [triangle, partner] : m_network.coplanarWith(m_sheets[i].triangle)) {
                if (hasSheet(partner))
                    continue;
                SegmentCover const cover = coverOf(m_soup, m_network, partner, low, high);
                std::size_t const before = m_sheets.size();
                if (!axis.isOfPlanes() && (cover.left || cover.right))
                    addHalves(partner, axis);
                if (axis.isOfPlanes() && cover.left)
                    add(partner, {}, -1);
                if (axis.isOfPlanes() && cover.right)
                    add(partner, {}, 1);
                for (std::size_t k = before; k < m_sheets.size(); ++k)
                    m_sheets[k].isSilent = true;
            }
    }

    bool hasSheet(std::uint32_t triangle) const
    {
        return std::any_of(m_sheets.begin(), m_sheets.end(),
                           [&](Sheet const& sheet) { return sheet.triangle == triangle; });
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
        if (axis.isOfPlanes()) {
            add(triangle, {}, -1);
            add(triangle, {}, 1);
            return;
        }
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

    /// Whether two sheets in one plane lie on the same side of the axis.
    bool areOnOneSide(Axis const& axis, Sheet const& a, Sheet const& b) const
    {
        if (axis.isOfPlanes())
            return (a.change == b.change) == doFaceAlike(a.triangle, b.triangle);
        for (int dropped = 0; dropped < 3; ++dropped) {
            int const sign = ExactSigns::orient2d(axis.from, axis.to, a.apex, dropped);
            if (sign != 0)
                return sign == ExactSigns::orient2d(axis.from, axis.to, b.apex, dropped);
        }
        return true;
    }

    TriangleCorners cornersOf(std::uint32_t triangle) const
    {
        return {m_soup.mesh.point(triangle, 0), m_soup.mesh.point(triangle, 1),
                m_soup.mesh.point(triangle, 2)};
    }

    /// For triangles in parallel planes.
    bool doFaceAlike(std::uint32_t t, std::uint32_t u) const
    {
        TriangleCorners const a = cornersOf(t), b = cornersOf(u);
        for (int dropped = 0; dropped < 3; ++dropped)
            if (int const sign = ExactSigns::orient2d(a[0], a[1], a[2], dropped); sign != 0)
                return sign == ExactSigns::orient2d(b[0], b[1], b[2], dropped);
        return true;
    }

    /// 1 if b follows a anticlockwise within half a turn, 0 if they lie in one plane.
    int turn(Axis const& axis, Sheet const& a, Sheet const& b) const
    {
        if (!axis.isOfPlanes())
            return ExactSigns::orient3d(axis.from, axis.to, a.apex, b.apex);
        // A sheet leaves the axis along the cross product of its normal and the axis, or against.
        return axis.way * a.change * b.change *
               Exact::signOfMeeting(cornersOf(a.triangle), cornersOf(b.triangle), axis.coordinate);
    }

    void sortSheets(Axis const& axis)
    {
        Sheet const reference = m_sheets.front();
        for (Sheet& sheet : m_sheets) {
            int const side = turn(axis, reference, sheet);
            sheet.quadrant = side > 0                               ? 1
                             : side < 0                             ? 3
                             : areOnOneSide(axis, reference, sheet) ? 0
                                                                    : 2;
        }
        std::stable_sort(m_sheets.begin(), m_sheets.end(), [&](Sheet const& a, Sheet const& b) {
            if (a.quadrant != b.quadrant)
                return a.quadrant < b.quadrant;
            return a.quadrant % 2 == 1 && turn(axis, a, b) > 0;
        });
    }

    std::size_t operandOf(std::uint32_t triangle) const
    {
        return std::size_t(m_soup.operandOf(triangle));
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
                       (s.quadrant % 2 == 0 || turn(axis, m_sheets[begin], s) == 0);
            };
            while (end < m_sheets.size() && isTogether(m_sheets[end]))
                ++end;
            std::array<int, 2> const before = winding;
            for (std::size_t i = begin; i < end; ++i)
                winding[operandOf(m_sheets[i].triangle)] += m_sheets[i].change;
            for (std::size_t i = begin; i < end; ++i) {
                m_sheets[i].before = before;
                m_sheets[i].after = winding;
            }
            tellStack(std::span(m_sheets).subspan(begin, end - begin), begin);
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

    /// Sheets that lie on each other.
    void tellStack(std::span<Sheet> sheets, std::size_t number) const
    {
        int lefts = 0, rights = 0;
        for (Sheet const& sheet : sheets)
            if (operandOf(sheet.triangle) == 0)
                ++(sheet.change < 0 ? lefts : rights);
        for (Sheet& sheet : sheets) {
            sheet.stack = {std::uint16_t(sheet.change < 0 ? lefts : rights),
                           std::uint16_t(sheet.change < 0 ? rights : lefts)};
            sheet.stackNumber = std::uint32_t(number);
        }
    }

    static SideSeed seedOf(Sheet const& sheet, std::uint32_t low, std::uint32_t high)
    {
        if (sheet.change < 0)
            return {sheet.triangle,   low, high, sheet.after, sheet.before, sheet.stack,
                    sheet.stackNumber};
        return {sheet.triangle,   high, low, sheet.before, sheet.after, sheet.stack,
                sheet.stackNumber};
    }

    OperandSoup const& m_soup;
    CurveNetwork const& m_network;
    Visit const& m_visit;
    StageProgress& m_progress;
    Polling m_polling;
    /// How many segments run between two points.
    FlatMap<std::uint64_t, KeyHash> m_counts;
    std::vector<EdgeUse> m_edges;
    std::vector<Sheet> m_sheets;
    std::vector<SideSeed> m_seeds;
};

}  // namespace

bool forSideSeeds(OperandSoup const& soup, CurveNetwork const& network,
                  std::function<bool(std::span<SideSeed const>)> const& visit,
                  StageProgress& progress)
{
    return SheetOrder(soup, network, visit, progress).run();
}
