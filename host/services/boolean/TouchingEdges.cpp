// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/TouchingEdges.h"

#include "host/mesh/ExactSigns.h"
#include "host/mesh/RoundingUnit.h"
#include "host/services/EdgeGroups.h"
#include "host/services/Polling.h"
#include "host/services/WedgePairing.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <tbb/parallel_reduce.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <functional>

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<double>;
using Range = tbb::blocked_range<std::size_t>;
constexpr std::size_t grain = 1 << 14;

/// How far off the middle of an edge a new point may lie, in units of the last place.
constexpr std::array unitsInward{0.75, 1.5, 3.0};
constexpr std::array unitsInLayer{0.25, 0.5, 0.75};
constexpr std::array unitsAround{0.5, 1.0, 2.0, 4.0};
/// What opens less is a layer: about eleven degrees.
constexpr double narrow = 0.02;

Vector offset(Point const& from, Point const& to)
{
    ExactSigns::Offset const o(from, to);
    return {o.x, o.y, o.z};
}

std::uint64_t hashOf(Point const& p)
{
    return PlaceHash()(placeKey(p));
}

/// Counts up to three for each of many numbers, in two bits by their hash: too many where two hashes
/// meet, as happens to one in eight.
class FewCounts
{
public:
    explicit FewCounts(std::size_t expected)
        : m_words(std::bit_ceil(std::max<std::size_t>(expected / 4, 16)), 0)
    {}

    void add(std::uint64_t hash)
    {
        std::uint64_t& word = m_words[placeOf(hash)];
        int const shift = shiftOf(hash);
        if ((word >> shift & 3) < 3)
            word += std::uint64_t(1) << shift;
    }
    int of(std::uint64_t hash) const { return int(m_words[placeOf(hash)] >> shiftOf(hash) & 3); }

private:
    std::size_t placeOf(std::uint64_t hash) const { return (hash >> 5) & (m_words.size() - 1); }
    static int shiftOf(std::uint64_t hash) { return int(hash & 31) * 2; }

    std::vector<std::uint64_t> m_words;
};

/// A set of numbers, by two bits of one word for each: holds one in some hundreds that is not in it
/// as well.
class RoughSet
{
public:
    explicit RoughSet(std::size_t expected)
        : m_words(std::bit_ceil(std::max<std::size_t>(expected / 2, 16)), 0)
    {}

    void add(std::uint64_t hash) { m_words[placeOf(hash)] |= bitsOf(hash); }
    bool mayHold(std::uint64_t hash) const { return (~m_words[placeOf(hash)] & bitsOf(hash)) == 0; }

private:
    std::size_t placeOf(std::uint64_t hash) const { return (hash >> 12) & (m_words.size() - 1); }
    static std::uint64_t bitsOf(std::uint64_t hash)
    {
        return std::uint64_t(1) << (hash & 63) | std::uint64_t(1) << (hash >> 6 & 63);
    }

    std::vector<std::uint64_t> m_words;
};

}  // namespace

void TouchingEdges::separate(std::vector<bool> const& isAtCurve, StageProgress& progress)
{
    std::vector<Use> uses = usesOfFullEdges(pointsAtPlaces(isAtCurve, progress), progress);
    Polling polling(progress, 64);
    for (std::size_t begin = 0, end = 0; begin < uses.size(); begin = end) {
        while (end < uses.size() && uses[end].hashes == uses[begin].hashes)
            ++end;
        polling.step();
        if (end - begin > 2)
            separate(std::span(uses).subspan(begin, end - begin));
    }
}

/// Marks the points at the places of some, and few others.
std::vector<std::uint8_t> TouchingEdges::pointsAtPlaces(std::vector<bool> const& isAtCurve,
                                                        StageProgress& progress) const
{
    Polling polling(progress);
    RoughSet atCurve(std::size_t(std::count(isAtCurve.begin(), isAtCurve.end(), true)));
    for (Index p = 0; p < isAtCurve.size(); ++p, polling.step())
        if (isAtCurve[p])
            atCurve.add(hashOf(m_places[p]));
    std::vector<std::uint8_t> isAtPlace(m_places.size());
    tbb::parallel_for(Range(0, m_places.size(), grain), [&](Range const& range) {
        for (std::size_t p = range.begin(); p != range.end(); ++p)
            isAtPlace[p] = atCurve.mayHold(hashOf(m_places[p]));
        progress.add(0);
    });
    return isAtPlace;
}

/// The triangles with a corner that is marked, in order.
std::vector<TouchingEdges::Index> TouchingEdges::trianglesAt(
    std::vector<std::uint8_t> const& isMarked, StageProgress& progress) const
{
    return tbb::parallel_reduce(
        Range(0, m_piece.size(), grain), std::vector<Index>(),
        [&](Range const& range, std::vector<Index> found) {
            for (std::size_t t = range.begin(); t != range.end(); ++t) {
                MeshArrays::Corners const& c = m_piece[t].corners;
                if ((isMarked[c[0]] | isMarked[c[1]] | isMarked[c[2]]) != 0)
                    found.push_back(Index(t));
            }
            progress.add(0);
            return found;
        },
        [](std::vector<Index> before, std::vector<Index> const& after) {
            before.insert(before.end(), after.begin(), after.end());
            return before;
        });
}

/// The triangles at all edges that may have more than two, sorted by these.
std::vector<TouchingEdges::Use> TouchingEdges::usesOfFullEdges(
    std::vector<std::uint8_t> const& mayTouch, StageProgress& progress) const
{
    Polling polling(progress);
    std::vector<Index> const near = trianglesAt(mayTouch, progress);
    using Hashes = std::array<std::uint64_t, 2>;
    auto const forEdges = [&](auto const& visit) {
        for (Index const t : near) {
            polling.step();
            MeshArrays::Corners const& c = m_piece[t].corners;
            std::array const hashes{hashOf(m_places[c[0]]), hashOf(m_places[c[1]]),
                                    hashOf(m_places[c[2]])};
            for (std::size_t k = 0, next = 1; k < 3; ++k, next = k == 2 ? 0 : k + 1) {
                std::uint64_t const a = hashes[k], b = hashes[next];
                if ((mayTouch[c[k]] || mayTouch[c[next]]) && a != b)
                    visit(Hashes{std::min(a, b), std::max(a, b)}, c[k], c[next], a < b, t);
            }
        }
    };
    auto const mixed = [](Hashes const& hashes) { return mixBits(hashes[0] + 3 * hashes[1]); };
    FewCounts counts(3 * near.size());
    forEdges(
        [&](Hashes const& hashes, Index, Index, bool, std::size_t) { counts.add(mixed(hashes)); });
    std::vector<Use> uses;
    forEdges([&](Hashes const& hashes, Index from, Index to, bool isUpward, std::size_t t) {
        if (counts.of(mixed(hashes)) == 3)
            uses.push_back({hashes, isUpward ? from : to, isUpward ? to : from, isUpward, t});
    });
    sortPolled(uses, progress, std::less<>());
    return uses;
}

/// Whether the ends of all are at the same two places, not just their hashes.
bool TouchingEdges::areOfOneEdge(std::span<Use const> uses) const
{
    return std::all_of(uses.begin(), uses.end(), [&](Use const& use) {
        return m_places[use.low] == m_places[uses[0].low] &&
               m_places[use.high] == m_places[uses[0].high];
    });
}

/// Whether a triangle is as an operand has it.
bool TouchingEdges::isOfOperand(Use const& use) const
{
    PieceTriangle const& t = m_piece[use.triangle];
    std::size_t const second = t.isTurned ? 2 : 1;
    return m_places[t.corners[0]] == m_soup.mesh.point(t.triangle, 0) &&
           m_places[t.corners[second]] == m_soup.mesh.point(t.triangle, 1) &&
           m_places[t.corners[3 - second]] == m_soup.mesh.point(t.triangle, 2);
}

void TouchingEdges::separate(std::span<Use> uses)
{
    auto const isAsInSame = [&](Use const& use) {
        return isOfOperand(use) && m_soup.operandOf(m_piece[use.triangle].triangle) ==
                                       m_soup.operandOf(m_piece[uses[0].triangle].triangle);
    };
    bool const isKept = m_which == Which::made && std::all_of(uses.begin(), uses.end(), isAsInSame);
    if (isKept || !areOfOneEdge(uses))
        return;
    for (Use& use : uses)
        use.triangle = holderOf(use);
    std::vector<Wedge> wedges;
    for (std::size_t begin = 0, end = 0; begin < uses.size(); begin = end) {
        while (end < uses.size() && uses[end].low == uses[begin].low &&
               uses[end].high == uses[begin].high)
            ++end;
        appendWedges(uses.subspan(begin, end - begin), wedges);
    }
    sortForLeading(wedges);
    // What is no pair here has partners elsewhere, and keeps the edge.
    std::size_t const kept = 2 * wedges.size() == uses.size() ? 1 : 0;
    std::size_t left = wedges.size();
    for (bool const mayTurn : {false, true})
        std::erase_if(wedges, [&](Wedge const& wedge) {
            bool const isAside = left > kept && leadAside(wedge.pair, mayTurn);
            left -= isAside;
            return isAside;
        });
}

/// In the order in which they are led aside; the last one keeps the edge. Those within others go
/// first, the outer before the inner, for these have to go further. Of the others the narrowest is
/// the last, for it has the least room for a point within.
void TouchingEdges::sortForLeading(std::vector<Wedge>& wedges) const
{
    std::stable_sort(wedges.begin(), wedges.end(), [this](Wedge const& a, Wedge const& b) {
        bool const isHeldA = a.depth > 0, isHeldB = b.depth > 0;
        if (isHeldA != isHeldB)
            return isHeldA;
        return a.depth != b.depth ? a.depth < b.depth : openingOf(a.pair) > openingOf(b.pair);
    });
}

/// The triangles between two points by twos that run along the edge in opposite ways and bound a
/// wedge of solid; none if others are missing.
void TouchingEdges::appendWedges(std::span<Use const> uses, std::vector<Wedge>& wedges) const
{
    MeshArrays around;
    around.points = {m_places[uses[0].low], m_places[uses[0].high]};
    std::vector<Index> halfEdges;
    for (Use const& use : uses) {
        Index const apex = Index(around.points.size());
        around.points.push_back(m_places[apexOf(use)]);
        halfEdges.push_back(Index(3 * around.triangles.size()));
        around.triangles.push_back(use.isUpward ? MeshArrays::Corners{0, 1, apex}
                                                : MeshArrays::Corners{1, 0, apex});
    }
    auto const separate = wedgePairs(around, halfEdges);
    for (auto const& [a, b] : separate)
        wedges.push_back({{uses[a / 3], uses[b / 3]}, 0});
    if (separate.empty())
        for (NestedWedge const& wedge : nestedWedges(around, halfEdges))
            wedges.push_back({{uses[wedge.first / 3], uses[wedge.second / 3]}, wedge.depth});
}

/// Grows with the angle of the wedge of solid between two triangles, from 0 to 4.
double TouchingEdges::openingOf(Pair const& pair) const
{
    Place const& from = m_places[pair[0].low];
    Vector along = offset(from, m_places[pair[0].high]);
    along.Normalize();
    std::array<Vector, 2> spokes;
    for (std::size_t i = 0; i < 2; ++i) {
        spokes[i] = offset(from, m_places[apexOf(pair[i])]);
        spokes[i] = spokes[i] - along * (spokes[i] | along);
        spokes[i].Normalize();
    }
    double const cosine = spokes[0] | spokes[1];
    bool const isConvex = (normalOf(m_piece[pair[0].triangle]) | spokes[1]) <= 0;
    return isConvex ? 1 - cosine : 3 + cosine;
}

/// Leads the edge of two triangles through a point of their own, if there is a place for it.
///
/// mayTurn  whether parts of the triangles may face another way: those of needles a unit or two high
bool TouchingEdges::leadAside(Pair const& pair, bool mayTurn)
{
    for (Place const& place : placesAside(pair)) {
        auto const isGood = [&](Use const& use) {
            return isPossible(use, place) && (mayTurn || !isTurned(use, place));
        };
        if (!std::all_of(pair.begin(), pair.end(), isGood) ||
            !m_taken.insert(placeKey(place)).second)
            continue;
        Index const point = Index(m_places.size());
        m_places.push_back(place);
        for (Use const& use : pair)
            divide(use, point);
        return true;
    }
    return false;
}

/// Places beside the middle of an edge: first those within the wedge of solid between two triangles.
std::vector<UPoint3<float>> TouchingEdges::placesAside(Pair const& pair) const
{
    Place const &a = m_places[pair[0].low], &b = m_places[pair[0].high];
    Vector const along = offset(a, b) * 0.5;
    Vector inward;
    for (Use const& use : pair) {
        // Away from the outside, and into the triangles where these lie on each other.
        Vector normal = normalOf(m_piece[use.triangle]);
        Vector apex = offset(a, m_places[apexOf(use)]);
        apex = apex - along * ((apex | along) / (along | along));
        inward = inward - normal.Normalize() + apex.Normalize() * 0x1p-10;
    }
    inward.Normalize();
    double const unit = roundingUnitAt(a);
    std::vector<Place> places;
    auto const add = [&](Vector const& aside) {
        Vector const way = along + aside;
        places.emplace_back(float(a[0] + way[0]), float(a[1] + way[1]), float(a[2] + way[2]));
    };
    // A layer thinner than floats tell has no room within.
    bool const isNarrow = openingOf(pair) < narrow;
    if (isNarrow)
        add({});
    for (double const units : isNarrow ? unitsInLayer : unitsInward)
        add(inward * (units * unit));
    for (double const units : unitsAround)
        for (int direction = 0; direction < 27; ++direction)
            add(Vector(direction % 3 - 1, direction / 3 % 3 - 1, direction / 9 - 1) *
                (units * unit));
    return places;
}

/// Whether a point there divides a triangle into two that have an area.
bool TouchingEdges::isPossible(Use const& use, Place const& place) const
{
    Place const& apex = m_places[apexOf(use)];
    return !ExactSigns::areCollinear(m_places[use.low], place, apex) &&
           !ExactSigns::areCollinear(m_places[use.high], place, apex) &&
           place != m_places[use.low] && place != m_places[use.high];
}

/// Whether one of these two would face another way than the triangle.
bool TouchingEdges::isTurned(Use const& use, Place const& place) const
{
    PieceTriangle const& t = m_piece[use.triangle];
    Place const& apex = m_places[apexOf(use)];
    Vector const normal = normalOf(t) * (use.isUpward ? 1.0 : -1.0);
    Vector const first = offset(m_places[use.low], place) * offset(m_places[use.low], apex);
    Vector const second = offset(place, m_places[use.high]) * offset(place, apex);
    return (first | normal) <= 0 || (second | normal) <= 0;
}

void TouchingEdges::divide(Use const& use, Index point)
{
    Index const from = use.isUpward ? use.low : use.high;
    Index const to = use.isUpward ? use.high : use.low;
    PieceTriangle second = m_piece[use.triangle];
    std::replace(second.corners.begin(), second.corners.end(), from, point);
    auto& corners = m_piece[use.triangle].corners;
    std::replace(corners.begin(), corners.end(), to, point);
    m_cutOff.emplace(use.triangle, m_piece.size());
    m_piece.push_back(second);
}

/// The triangle of a use, or what was cut off it with the edge.
std::size_t TouchingEdges::holderOf(Use const& use) const
{
    Index const from = use.isUpward ? use.low : use.high;
    Index const to = use.isUpward ? use.high : use.low;
    std::vector<std::size_t> open{use.triangle};
    while (!open.empty()) {
        std::size_t const triangle = open.back();
        open.pop_back();
        MeshArrays::Corners const& c = m_piece[triangle].corners;
        for (std::size_t k = 0; k < 3; ++k)
            if (c[k] == from && c[(k + 1) % 3] == to)
                return triangle;
        auto const [begin, end] = m_cutOff.equal_range(triangle);
        for (auto part = begin; part != end; ++part)
            open.push_back(part->second);
    }
    return use.triangle;
}

TouchingEdges::Index TouchingEdges::apexOf(Use const& use) const
{
    for (Index const corner : m_piece[use.triangle].corners)
        if (corner != use.low && corner != use.high)
            return corner;
    return use.low;
}

/// The normal of the operand's triangle on which one of the piece lies, as this one faces.
UVector3<double> TouchingEdges::normalOf(PieceTriangle const& triangle) const
{
    MeshArrays const& soup = m_soup.mesh;
    Vector const normal =
        offset(soup.point(triangle.triangle, 0), soup.point(triangle.triangle, 1)) *
        offset(soup.point(triangle.triangle, 0), soup.point(triangle.triangle, 2));
    return triangle.isTurned ? -normal : normal;
}
