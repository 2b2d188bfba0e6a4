// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PlaneSection.h"

#include <algorithm>
#include <array>
#include <bit>
#include <span>
#include <unordered_map>

namespace {

using Point = UPoint3<float>;

/// A gap of an open line up to this part of its length is closed by a straight line.
constexpr double closedGap = 0.1;
constexpr std::uint32_t none = ~0u;

/// An edge by the places of its ends, the lesser one first: meshes whose triangles share places but
/// no vertices join too.
struct EdgePlace
{
    std::array<float, 6> ends;
    bool operator==(EdgePlace const&) const = default;
};

struct EdgeHash
{
    std::size_t operator()(EdgePlace const& place) const
    {
        std::uint64_t hash = 0;
        for (float const end : place.ends)
            hash = (hash ^ std::bit_cast<std::uint32_t>(end)) * 0x9e3779b97f4a7c15u;
        return std::size_t(hash ^ hash >> 32);
    }
};

std::array<float, 3> keyOf(Point const& p)
{
    // Adding 0 makes a negative zero a positive one.
    return {p.X() + 0.0f, p.Y() + 0.0f, p.Z() + 0.0f};
}

/// One piece of line per triangle, and which ends of pieces meet. Piece p has the ends 2p, where
/// its triangle goes up through the plane, and 2p + 1, where it comes down.
class Joining
{
public:
    void add(UTriangle<float> const& triangle, ViewPlane const& plane)
    {
        std::array<Point, 3> const p = {triangle.cP(0), triangle.cP(1), triangle.cP(2)};
        std::array<double, 3> const h = {plane.heightOf(p[0]), plane.heightOf(p[1]),
                                         plane.heightOf(p[2])};
        std::uint32_t up = none, down = none;
        for (int i = 0; i < 3; ++i) {
            int const j = (i + 1) % 3;
            if ((h[i] >= 0) != (h[j] >= 0))
                (h[i] < 0 ? up : down) = crossing(p[i], h[i], p[j], h[j]);
        }
        if (up != down)
            m_crossings.insert(m_crossings.end(), {up, down});
    }

    /// Where more than two pieces meet, lines go on along the direction of their pieces if they
    /// can. What then is left over is joined against it: its triangles face different ways.
    void join()
    {
        m_partners.assign(m_crossings.size(), none);
        std::vector<std::uint32_t> ends(m_crossings.size());
        for (std::uint32_t end = 0; end < ends.size(); ++end)
            ends[end] = end;
        std::sort(ends.begin(), ends.end(), [&](std::uint32_t a, std::uint32_t b) {
            return std::pair(m_crossings[a], a) < std::pair(m_crossings[b], b);
        });
        for (std::size_t first = 0; first < ends.size();) {
            std::size_t last = first + 1;
            while (last < ends.size() && m_crossings[ends[last]] == m_crossings[ends[first]])
                ++last;
            joinAtOne(std::span(ends).subspan(first, last - first));
            first = last;
        }
    }

    std::uint32_t endCount() const { return std::uint32_t(m_crossings.size()); }
    Point const& pointOf(std::uint32_t end) const { return m_points[m_crossings[end]]; }
    /// The end of another piece that this one meets; none if it lies open.
    std::uint32_t partnerOf(std::uint32_t end) const { return m_partners[end]; }

private:
    std::uint32_t crossing(Point const& a, double heightA, Point const& b, double heightB)
    {
        auto const keyA = keyOf(a), keyB = keyOf(b);
        if (keyB < keyA)
            return crossing(b, heightB, a, heightA);
        EdgePlace const place{{keyA[0], keyA[1], keyA[2], keyB[0], keyB[1], keyB[2]}};
        auto const [known, isNew] = m_places.try_emplace(place, std::uint32_t(m_points.size()));
        if (isNew) {
            double const t = heightA / (heightA - heightB);
            auto const at = [&](int axis) {
                return float(a[axis] + t * (double(b[axis]) - a[axis]));
            };
            m_points.emplace_back(at(0), at(1), at(2));
        }
        return known->second;
    }

    void joinAtOne(std::span<std::uint32_t> ends)
    {
        auto const middle = std::stable_partition(ends.begin(), ends.end(),
                                                  [](std::uint32_t end) { return end % 2 == 0; });
        std::size_t const ups = std::size_t(middle - ends.begin());
        std::size_t const pairs = std::min(ups, ends.size() - ups);
        for (std::size_t i = 0; i < pairs; ++i)
            joinTwo(ends[i], ends[ups + i]);
        std::size_t const rest = ups > pairs ? pairs : ups + pairs;
        std::size_t const end = ups > pairs ? ups : ends.size();
        for (std::size_t i = rest; i + 1 < end; i += 2)
            joinTwo(ends[i], ends[i + 1]);
    }

    void joinTwo(std::uint32_t a, std::uint32_t b)
    {
        m_partners[a] = b;
        m_partners[b] = a;
    }

    std::unordered_map<EdgePlace, std::uint32_t, EdgeHash> m_places;
    std::vector<Point> m_points;
    std::vector<std::uint32_t> m_crossings;
    std::vector<std::uint32_t> m_partners;
};

double lengthOf(Point const& a, Point const& b)
{
    UVector3<float> const v = b - a;
    return v.GetLength();
}

}  // namespace

PlaneSection::PlaneSection(PickTree const& tree, UMesh<float> const& mesh, ViewPlane const& plane)
{
    Joining joining;
    tree.forTrianglesNear(
        plane, [&](std::uint32_t triangle) { joining.add(*mesh.triangles[triangle], plane); });
    joining.join();
    std::vector<bool> isTaken(joining.endCount() / 2);
    // From an end through its piece and on; the turn counts pieces along their direction.
    auto const follow = [&](std::uint32_t start) {
        std::size_t const first = m_points.size();
        int turn = 0;
        std::uint32_t end = start, last = start;
        do {
            last = end ^ 1;
            isTaken[end / 2] = true;
            turn += end % 2 == 0 ? 1 : -1;
            m_points.push_back(joining.pointOf(end));
            end = joining.partnerOf(last);
        } while (end != none && end != start);
        if (end == none)
            m_points.push_back(joining.pointOf(last));
        addRun(first, end == start, turn);
    };
    for (std::uint32_t end = 0; end < joining.endCount(); ++end)
        if (joining.partnerOf(end) == none && !isTaken[end / 2])
            follow(end);
    for (std::uint32_t end = 0; end < joining.endCount(); end += 2)
        if (!isTaken[end / 2])
            follow(end);
}

void PlaneSection::addRun(std::size_t first, bool isClosed, int turn)
{
    Run run{first, m_points.size() - first, isClosed, isClosed};
    // Triangles that face the wrong way are outvoted.
    if (turn < 0)
        std::reverse(m_points.begin() + std::ptrdiff_t(first), m_points.end());
    if (!isClosed) {
        double length = 0;
        for (std::size_t i = first + 1; i < m_points.size(); ++i)
            length += lengthOf(m_points[i - 1], m_points[i]);
        run.hasArea = lengthOf(m_points[first], m_points.back()) < closedGap * length;
    }
    m_runs.push_back(run);
}

std::vector<PlaneSection::Point> PlaneSection::lines() const
{
    std::vector<Point> result;
    result.reserve(2 * m_points.size());
    for (Run const& run : m_runs) {
        for (std::size_t i = run.first + 1; i < run.first + run.count; ++i)
            result.insert(result.end(), {m_points[i - 1], m_points[i]});
        if (run.isClosed)
            result.insert(result.end(), {m_points[run.first + run.count - 1], m_points[run.first]});
    }
    return result;
}

std::vector<PlaneSection::Point> PlaneSection::areas() const
{
    std::vector<Point> result;
    result.reserve(3 * m_points.size());
    for (Run const& run : m_runs)
        for (std::size_t i = run.first + 2; run.hasArea && i < run.first + run.count; ++i)
            result.insert(result.end(), {m_points[run.first], m_points[i - 1], m_points[i]});
    return result;
}

std::size_t PlaneSection::openLines() const
{
    return std::size_t(
        std::count_if(m_runs.begin(), m_runs.end(), [](Run const& run) { return !run.hasArea; }));
}
