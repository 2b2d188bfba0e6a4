// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/RoundedFacets.h"

#include "host/mesh/ExactSigns.h"
#include "host/services/Polling.h"
#include "host/services/boolean/PlaceKey.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_reduce.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <unordered_map>

namespace {

constexpr std::uint32_t none = 0xffffffff;
/// Rounds that may pass without a new least number of facets to mend.
constexpr int patience = 12;
/// Points that differ by less than this share of their coordinates may be joined: four times what
/// rounding to float makes of one point.
constexpr double nearness = 0x1p-22;
/// Facets lower than this share of their coordinates are flat: a quarter of that rounding.
constexpr double flatness = 0x1p-26;

using Point = UPoint3<float>;
using Corners = MeshArrays::Corners;
bool isCollapsed(Corners const& c)
{
    return c[0] == c[1] || c[1] == c[2] || c[2] == c[0];
}

double squaredLength(Point const& a, Point const& b)
{
    ExactSigns::Offset const d(a, b);
    return d.x * d.x + d.y * d.y + d.z * d.z;
}

}  // namespace

RoundedFacets::RoundedFacets(OperandSoup const& soup, CurveNetwork const& network,
                             StageProgress& progress)
    : m_soup(soup), m_network(network), m_progress(progress)
{
    numberPoints();
    copyFacets();
    mend();
}

/// Vertices keep their numbers, so that those of one operand at the same place stay apart unless a
/// curve passes through them.
void RoundedFacets::numberPoints()
{
    CurvePoints const& points = m_network.points();
    m_numbers.resize(points.size());
    m_isMended.assign(points.size(), false);
    PointsByPlace byPlace(points.size() - m_soup.pointCount() + m_network.facets().ends.size());
    Polling polling(m_progress);
    std::vector<bool> isEntered(m_soup.pointCount(), false);
    for (Facets::End const& face : m_network.facets().ends)
        for (std::uint32_t const corner : m_soup.corners(face.triangle)) {
            polling.step();
            if (isEntered[corner])
                continue;
            isEntered[corner] = true;
            if (std::uint32_t& known = byPlace[placeKey(place(corner))]; known == byPlace.none)
                known = points.numberOf(corner);
        }
    for (std::uint32_t i = m_soup.pointCount(); i < points.size(); ++i) {
        polling.step();
        std::uint32_t& known = byPlace[placeKey(place(i))];
        if (known == byPlace.none)
            known = i;
        if (known != i)
            m_isMended[known] = true;
        m_numbers[i] = known;
    }
    for (std::uint32_t i = 0; i < m_soup.pointCount(); ++i) {
        polling.step();
        std::uint32_t const standIn = points.numberOf(i);
        m_numbers[i] = standIn < m_soup.pointCount() ? standIn : m_numbers[standIn];
    }
}

void RoundedFacets::copyFacets()
{
    Facets const& facets = m_network.facets();
    m_facets.reserve(facets.corners.size());
    Polling polling(m_progress);
    std::uint32_t begin = 0;
    for (Facets::End const& face : facets.ends) {
        polling.step();
        for (std::uint32_t f = begin; f < face.facets; ++f) {
            Corners corners;
            for (std::size_t k = 0; k < 3; ++k)
                corners[k] = m_numbers[facets.corners[f][k]];
            if (!isCollapsed(corners))
                m_facets.push_back({corners, face.triangle, facets.regions[f]});
        }
        begin = face.facets;
    }
}

/// What a facet must face alike.
class RoundedFacets::Facing
{
public:
    Facing(OperandSoup const& soup, std::uint32_t triangle)
    {
        ExactSigns::Offset const u(soup.mesh.point(triangle, 0), soup.mesh.point(triangle, 1)),
            v(soup.mesh.point(triangle, 0), soup.mesh.point(triangle, 2));
        m_normal = {u.y * v.z - u.z * v.y, u.z * v.x - u.x * v.z, u.x * v.y - u.y * v.x};
        for (std::size_t k = 1; k < 3; ++k)
            if (std::abs(m_normal[k]) > std::abs(m_normal[m_axis]))
                m_axis = k;
    }

    /// Whether a facet faces the same way and is not so low that its corners lie in a line as far
    /// as floats of their size tell.
    bool isMetBy(Point const& a, Point const& b, Point const& c) const
    {
        ExactSigns::Offset const u(a, b), v(a, c), w(b, c);
        std::array<double, 3> const n{u.y * v.z - u.z * v.y, u.z * v.x - u.x * v.z,
                                      u.x * v.y - u.y * v.x};
        double const length = std::max({squared(u), squared(v), squared(w)});
        double const size = std::max({std::abs(a[0]), std::abs(a[1]), std::abs(a[2])});
        double const area = n[0] * n[0] + n[1] * n[1] + n[2] * n[2];
        if (area <= length * (double(size) * size) * (flatness * flatness))
            return false;
        double const along = n[0] * m_normal[0] + n[1] * m_normal[1] + n[2] * m_normal[2];
        double const most =
            m_normal[0] * m_normal[0] + m_normal[1] * m_normal[1] + m_normal[2] * m_normal[2];
        // Rounding of the products stays far below a sixteenth.
        if (along > 0 && along * along * 16 > area * most && area > length * length * 1e-20)
            return true;
        int const sign = ExactSigns::orient2d(a, b, c, int(m_axis));
        return (m_normal[m_axis] > 0 ? sign : -sign) > 0;
    }

private:
    static double squared(ExactSigns::Offset const& o) { return o.x * o.x + o.y * o.y + o.z * o.z; }

    std::array<double, 3> m_normal;
    std::size_t m_axis = 0;
};

/// Those of some facets that are flat or face the other way than their triangles.
///
/// number  gives the facets' numbers for 0 to count
template <typename Number>
std::vector<std::size_t> RoundedFacets::findTurned(std::size_t count, Number const& number) const
{
    using Turned = std::vector<std::size_t>;
    using Range = tbb::blocked_range<std::size_t>;
    return tbb::parallel_reduce(
        Range(0, count, 4096), Turned(),
        [&](Range const& range, Turned turned) {
            m_progress.add(0);
            for (std::size_t i = range.begin(); i < range.end();) {
                std::uint32_t const triangle = m_facets[number(i)].triangle;
                Facing const facing(m_soup, triangle);
                for (; i < range.end() && m_facets[number(i)].triangle == triangle; ++i) {
                    Corners const& c = m_facets[number(i)].corners;
                    if (!isCollapsed(c) && !facing.isMetBy(place(c[0]), place(c[1]), place(c[2])))
                        turned.push_back(number(i));
                }
            }
            return turned;
        },
        [](Turned a, Turned const& b) {
            a.insert(a.end(), b.begin(), b.end());
            return a;
        });
}

/// What is at each point of some facets: other facets, kept up while these are mended, and triangles
/// that no curve divides.
class RoundedFacets::Surroundings
{
public:
    Surroundings(std::vector<Facet> const& facets, std::vector<std::size_t> const& some,
                 std::size_t points, StageProgress& progress)
        : m_isWatched(points, false)
    {
        Polling polling(progress);
        for (std::size_t const f : some)
            for (std::uint32_t const corner : facets[f].corners) {
                polling.step();
                m_facetsAt[corner];
                m_isWatched[corner] = true;
            }
        for (std::size_t f = 0; f < facets.size(); ++f) {
            polling.step();
            add(facets[f], f);
        }
    }

    void add(Facet const& facet, std::size_t place)
    {
        for (std::uint32_t const corner : facet.corners)
            if (m_isWatched[corner])
                m_facetsAt.at(corner).push_back(place);
    }

    std::vector<std::size_t> facetsAt(std::uint32_t point) const { return m_facetsAt.at(point); }

    /// By one pass over all triangles when it is asked for the first time.
    std::vector<std::uint32_t> const& wholesAt(std::uint32_t point, OperandSoup const& soup,
                                               CurveNetwork const& network, StageProgress& progress)
    {
        if (m_wholesAt.empty())
            findWholes(soup, network, progress);
        return m_wholesAt[point];
    }

private:
    void findWholes(OperandSoup const& soup, CurveNetwork const& network, StageProgress& progress)
    {
        Polling polling(progress);
        for (std::uint32_t t = 0; t < soup.triangleCount(); ++t) {
            polling.step();
            if (network.faceOf(t) != CurveNetwork::none)
                continue;
            for (std::uint32_t const corner : soup.corners(t))
                if (m_isWatched[corner])
                    m_wholesAt[corner].push_back(t);
        }
    }

    std::vector<bool> m_isWatched;
    std::unordered_map<std::uint32_t, std::vector<std::uint32_t>> m_wholesAt;
    std::unordered_map<std::uint32_t, std::vector<std::size_t>> m_facetsAt;
};

void RoundedFacets::mend()
{
    std::size_t const count = m_facets.size();
    auto turned = findTurned(count, [](std::size_t i) { return i; });
    if (turned.empty())
        return;
    // What is left after all meets others, if at all, and RoundingMending looks at that.
    std::size_t fewest = turned.size();
    for (int inVain = 0; inVain < patience && !turned.empty(); ++inVain) {
        m_changed.clear();
        Surroundings surroundings(m_facets, turned, m_numbers.size(), m_progress);
        Polling polling(m_progress, 64);
        for (std::size_t const f : turned) {
            polling.step();
            if (!isCollapsed(m_facets[f].corners))
                collapse(f, surroundings);
        }
        sortPolled(m_changed, m_progress, std::less<>());
        m_changed.erase(std::unique(m_changed.begin(), m_changed.end()), m_changed.end());
        turned = findTurned(m_changed.size(), [this](std::size_t i) { return m_changed[i]; });
        if (turned.size() < fewest) {
            fewest = turned.size();
            inVain = 0;
        }
    }
    // A point that is gone is no facet's any more, so it never takes in another.
    if (!m_joined.empty())
        for (std::uint32_t& number : m_numbers)
            for (auto it = m_joined.find(number); it != m_joined.end(); it = m_joined.find(number))
                number = it->second;
    // The new facets to their triangles.
    auto const byTriangle = [](Facet const& a, Facet const& b) { return a.triangle < b.triangle; };
    auto const middle = m_facets.begin() + std::ptrdiff_t(count);
    std::stable_sort(middle, m_facets.end(), byTriangle);
    m_progress.add(0);
    std::inplace_merge(m_facets.begin(), middle, m_facets.end(), byTriangle);
    m_progress.add(0);
    std::erase_if(m_facets, [](Facet const& f) { return isCollapsed(f.corners); });
}

/// Whether all triangles at an edge are divided for sure.
bool RoundedFacets::isDivided(std::uint32_t a, std::uint32_t b) const
{
    return m_network.points().isOnCurve(a) || m_network.points().isOnCurve(b);
}

/// Makes a flat facet collapse: joins two corners that are as near as rounding makes points differ,
/// or leads the longest edge through the third corner.
void RoundedFacets::collapse(std::size_t flat, Surroundings& surroundings)
{
    Corners const c = m_facets[flat].corners;
    for (std::uint32_t const corner : c)
        m_isMended[corner] = true;
    std::array<double, 3> lengths;
    for (std::size_t k = 0; k < 3; ++k)
        lengths[k] = squaredLength(place(c[k]), place(c[(k + 1) % 3]));
    std::size_t const shortest =
        std::size_t(std::min_element(lengths.begin(), lengths.end()) - lengths.begin());
    std::size_t const longest =
        std::size_t(std::max_element(lengths.begin(), lengths.end()) - lengths.begin());
    double size = 0;
    for (int k = 0; k < 3; ++k)
        size = std::max(size, std::abs(double(place(c[shortest])[k])));
    if (lengths[shortest] <= size * size * nearness * nearness &&
        join(c[shortest], c[(shortest + 1) % 3], surroundings))
        return;
    leadThrough(c[longest], c[(longest + 1) % 3], c[(longest + 2) % 3], surroundings);
}

/// Puts one point in the place of another. A vertex off the curves stays, for triangles that are
/// not divided have it too. Returns false for two of these.
bool RoundedFacets::join(std::uint32_t a, std::uint32_t b, Surroundings& surroundings)
{
    CurvePoints const& points = m_network.points();
    if (!points.isOnCurve(a) && !points.isOnCurve(b))
        return false;
    bool const isAFree = points.isOnCurve(a) && (!points.isOnCurve(b) || a > b);
    std::uint32_t const kept = isAFree ? b : a, gone = isAFree ? a : b;
    for (std::size_t const f : surroundings.facetsAt(gone)) {
        // What has an edge to both points has two in one place now.
        for (std::uint32_t& corner : m_facets[f].corners) {
            m_isMended[corner] = true;
            if (corner == gone)
                corner = kept;
        }
        surroundings.add(m_facets[f], f);
        m_changed.push_back(f);
    }
    m_joined[gone] = kept;
    return true;
}

/// Makes facets of the triangles at an edge that no curve divides.
void RoundedFacets::divideWholeTriangles(std::uint32_t a, std::uint32_t b,
                                         Surroundings& surroundings)
{
    for (std::uint32_t const t : surroundings.wholesAt(a, m_soup, m_network, m_progress)) {
        Corners const& c = m_soup.corners(t);
        if (std::find(c.begin(), c.end(), b) == c.end() || isDivided(t))
            continue;
        m_facets.push_back({c, t, whole});
        surroundings.add(m_facets.back(), m_facets.size() - 1);
        m_dividedWholes.insert(t);
    }
}

bool RoundedFacets::isDivided(std::uint32_t triangle) const
{
    return m_network.faceOf(triangle) != CurveNetwork::none || m_dividedWholes.contains(triangle);
}

/// Leads an edge through a point, in all facets at the edge.
void RoundedFacets::leadThrough(std::uint32_t from, std::uint32_t to, std::uint32_t middle,
                                Surroundings& surroundings)
{
    if (!isDivided(from, to))
        divideWholeTriangles(from, to, surroundings);
    for (std::size_t const f : surroundings.facetsAt(from))
        for (std::size_t k = 0; k < 3; ++k) {
            Corners& corners = m_facets[f].corners;
            std::uint32_t const a = corners[k], b = corners[(k + 1) % 3];
            if (!((a == from && b == to) || (a == to && b == from)) || isCollapsed(corners))
                continue;
            Facet second = m_facets[f];
            second.corners[k] = middle;
            corners[(k + 1) % 3] = middle;
            surroundings.add(m_facets[f], f);
            m_changed.push_back(f);
            if (!isCollapsed(second.corners)) {
                m_changed.push_back(m_facets.size());
                m_facets.push_back(second);
                surroundings.add(second, m_facets.size() - 1);
            }
            break;
        }
}
