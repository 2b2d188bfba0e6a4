// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/SectionRounding.h"

#include "host/mesh/RoundingUnit.h"
#include "host/services/boolean/RoundingMending.h"
#include "host/services/planecut/HalfCrossings.h"
#include "host/services/planecut/PointNumbers.h"
#include "host/services/planecut/SectionSoup.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<double>;
using Triangle = UTriangle<float>;
using Corners = MeshArrays::Corners;
using Box = TriangleTree::Box;

/// Rounding moves a point by half a unit in each coordinate.
constexpr double doubtfulUnits = 2;
/// Further than mending moves points.
constexpr double reachUnits = 128;
/// Tests of boxes, of which a million take one or two milliseconds; beyond, a tree over all that was
/// made is worth its making.
constexpr std::size_t mostTests = 8'000'000;
/// Triangles that are looked at from one poll to the next.
constexpr std::size_t pollInterval = 65536;

Vector between(Point const& from, Point const& to)
{
    return {double(to[0]) - from[0], double(to[1]) - from[1], double(to[2]) - from[2]};
}

/// Takes out of a list the elements at some ascending places for which a condition holds; the others
/// are not looked at.
template <typename Element, typename Condition>
void eraseAmong(std::vector<Element>& list, std::vector<std::size_t> const& places,
                Condition const& condition)
{
    auto kept = list.begin();
    std::size_t from = 0;
    for (std::size_t const place : places) {
        if (!condition(list[place]))
            continue;
        auto const begin = list.begin() + std::ptrdiff_t(from);
        auto const end = list.begin() + std::ptrdiff_t(place);
        kept = kept == begin ? end : std::move(begin, end, kept);
        from = place + 1;
    }
    if (from > 0)
        list.erase(std::move(list.begin() + std::ptrdiff_t(from), list.end(), kept), list.end());
}

/// Boxes around which triangles are sought.
class Surroundings
{
public:
    void add(Triangle const& triangle)
    {
        Box box = boxOf(triangle);
        auto const reach = float(reachUnits * roundingUnitAt(triangle.cP(0)));
        for (std::size_t k = 0; k < 3; ++k) {
            box.low[k] -= reach;
            box.high[k] += reach;
        }
        m_boxes.push_back(box);
        m_bounds.add(box);
    }

    bool reach(Triangle const& triangle) const
    {
        Box const box = boxOf(triangle);
        return box.overlaps(m_bounds) &&
               std::any_of(m_boxes.begin(), m_boxes.end(),
                           [&](Box const& other) { return box.overlaps(other); });
    }

private:
    std::vector<Box> m_boxes;
    Box m_bounds;
};

/// Whether rounding can have turned a triangle over.
bool isNarrow(Point const& a, Point const& b, Point const& c)
{
    Vector const u = between(a, b), v = between(a, c);
    Vector const w = v - u, normal = u * v;
    double const longest = std::max({u | u, v | v, w | w});
    double const width = doubtfulUnits * roundingUnitAt(a);
    return (normal | normal) <= width * width * longest;
}

/// Adds the triangles beside the plane that stand in some surroundings: what was copied may be in
/// the way. A pass over the part.
///
/// returns  where triangles that are near, and those that the cut has made, stand in the lists of
///          both halves, ascending
std::array<std::vector<std::size_t>, 2> addCopies(SideCopies& copies, SectionWalls const& walls,
                                                  SectionRounding::Triangles const& caps,
                                                  Surroundings const& surroundings,
                                                  PointNumbers const& numbers,
                                                  std::vector<HalfTriangle>& near,
                                                  StageProgress& stage)
{
    std::array<std::vector<std::size_t>, 2> standing;
    for (CutSide const side : {sideAbove, sideBelow}) {
        auto const& all = copies.mesh(side).triangles;
        std::size_t const copied = all.size() - walls.written(side).size() - caps[side].size();
        for (std::size_t t = 0; t < copied; ++t) {
            if (t % pollInterval == 0)
                stage.add(0);
            if (!surroundings.reach(*all[t]))
                continue;
            near.push_back(halfTriangleOf(all[t], all[t], side, numbers));
            standing[side].push_back(t);
        }
        for (std::size_t t = copied; t < all.size(); ++t)
            standing[side].push_back(t);
    }
    return standing;
}

/// Section points that have come into the place of a vertex beside the plane, by the number of this
/// vertex: the half that does not have the vertex keeps the point there.
std::unordered_map<std::uint32_t, std::uint32_t> standInsIn(SectionSoup const& soup)
{
    std::unordered_map<std::uint32_t, std::uint32_t> standIns;
    for (auto const& piece : soup.pieces)
        for (PieceTriangle const& t : piece)
            for (std::size_t i = 0; i < 3; ++i)
                if (std::uint32_t const was = soup.before[t.triangle][i];
                    soup.isNative(t.corners[i]) && was != t.corners[i]) {
                    auto const entry = standIns.try_emplace(t.corners[i], was).first;
                    entry->second = std::min(entry->second, was);
                }
    return standIns;
}

}  // namespace

struct SectionRounding::Mended
{
    std::vector<Point> places;
    /// The section points of each triangle that is left; in a wall not all numbers are points.
    std::array<std::unordered_map<Triangle*, Corners>, 2> points;
    std::unordered_set<Triangle*> gone;
    /// Where triangles that are gone may stand in the lists of both halves, ascending.
    std::array<std::vector<std::size_t>, 2> mayGo;
};

SectionRounding::~SectionRounding()
{
    for (Triangle* const triangle : m_gone)
        delete triangle;
}

bool SectionRounding::isInDoubt(Exact::SectionFilling const& filling)
{
    // Layers that lie on each other cross those walls that end in one of them.
    if (filling.layers > 1)
        return false;
    m_isInDoubt.assign(m_points.size(), false);
    for (WallPiece const& piece : m_walls.pieces())
        if (piece.size > 2)
            doubt(piece);
    // The caps of a plane along two axes lie in it exactly.
    for (std::size_t i = 0; i < filling.triangles.size() && !m_plane.isAxisParallel(); ++i) {
        auto const& [a, b, c] = filling.triangles[i];
        if (!isNarrow(m_points.place(a), m_points.place(b), m_points.place(c)))
            continue;
        for (std::uint32_t const point : filling.triangles[i])
            m_isAny = m_isInDoubt[point] = true;
    }
    return m_isAny;
}

void SectionRounding::doubt(WallPiece const& piece)
{
    std::array<Point, 4> places;
    bool isDoubted = false;
    for (std::size_t i = 0; i < std::size_t(piece.size); ++i) {
        places[i] = m_walls.placeOf(piece.corners[i]);
        isDoubted |= !piece.corners[i].isPoint() && !m_plane.isAxisParallel() &&
                     m_plane.distanceOf(places[i]) <= doubtfulUnits * roundingUnitAt(places[i]);
    }
    for (auto const& [a, b, c] : m_walls.trianglesOf(piece))
        isDoubted |= isNarrow(places[a], places[b], places[c]);
    if (!isDoubted)
        return;
    for (std::size_t i = 0; i < std::size_t(piece.size); ++i)
        if (piece.corners[i].isPoint())
            m_isAny = m_isInDoubt[piece.corners[i].point] = true;
}

bool SectionRounding::isAnyCrossing(Exact::SectionFilling const& filling,
                                    std::function<void(int)> const& progress)
{
    if (!isInDoubt(filling))
        return false;
    StageProgress stage(progress);
    stage.begin(0, 100, 1);
    m_isInDoubt = pointsAtCrossings(filling, stage);
    return std::find(m_isInDoubt.begin(), m_isInDoubt.end(), true) != m_isInDoubt.end();
}

/// The points in doubt at triangles that cross others, with a point in doubt at one of the two.
std::vector<bool> SectionRounding::pointsAtCrossings(Exact::SectionFilling const& filling,
                                                     StageProgress& stage) const
{
    HalfCrossings search(
        [&](VisitHalfTriangle const& visit) {
            visitTrianglesToMake(m_walls, m_copies, filling, visit);
        },
        m_points, m_isInDoubt, m_plane.isAxisParallel());
    std::vector<bool> found(m_isInDoubt.size(), false);
    auto const enter = [&](HalfTriangle const& triangle) {
        for (HalfCorner const& corner : triangle.corners)
            if (corner.isPoint())
                found[corner.point] = m_isInDoubt[corner.point];
    };
    if (search.effort() <= mostTests) {
        for (std::size_t const i : search.run(stage))
            enter(search.near()[i]);
        return found;
    }
    SectionSoup const soup(search.takeNear(), m_plane, m_points, m_isInDoubt);
    for (std::size_t const i : soup.crossing(stage))
        enter(soup.faces[i]);
    return found;
}

std::vector<Point> SectionRounding::mend(Triangles& caps, Exact::SectionFilling& filling,
                                         std::function<void(int)> const& progress)
{
    StageProgress stage(progress);
    stage.begin(0, 100, 1);
    PointNumbers const numbers(m_points);
    auto const visitMade = [&](VisitHalfTriangle const& visit) {
        visitTrianglesMade(m_walls, caps, numbers, visit);
    };
    auto const isToMove = [&](HalfCorner const& corner) {
        return corner.isPoint() && m_isInDoubt[corner.point];
    };
    Surroundings surroundings;
    visitMade([&](HalfTriangle const& triangle) {
        if (std::any_of(triangle.corners.begin(), triangle.corners.end(), isToMove))
            surroundings.add(*triangle.record);
    });
    std::vector<HalfTriangle> near;
    visitMade([&](HalfTriangle const& triangle) {
        if (surroundings.reach(*triangle.record))
            near.push_back(triangle);
    });
    Mended mended;
    mended.mayGo = addCopies(m_copies, m_walls, caps, surroundings, numbers, near, stage);
    SectionSoup soup(std::move(near), m_plane, m_points, m_isInDoubt);
    auto left = RoundingMending(soup.operands, soup.pieces, soup.places, soup.isFree).run(stage);
    write(soup, mended);
    takeOver(mended, caps, filling);
    return left;
}

/// Gives the triangles their new corners.
void SectionRounding::write(SectionSoup& soup, Mended& mended)
{
    auto const standIns = standInsIn(soup);
    for (auto const& [number, point] : standIns)
        soup.places[point] = soup.places[number];
    for (HalfTriangle const& face : soup.faces)
        mended.gone.insert(face.record);
    for (CutSide const side : {sideAbove, sideBelow})
        for (PieceTriangle const& t : soup.pieces[side]) {
            Triangle* const record = soup.faces[t.triangle].record;
            mended.gone.erase(record);
            Corners points = t.corners;
            for (std::size_t i = 0; i < 3; ++i) {
                if (auto const found = standIns.find(t.corners[i]); found != standIns.end())
                    points[i] = found->second;
                if (t.corners[i] == soup.before[t.triangle][i])
                    continue;
                bool const isHere =
                    soup.isNative(t.corners[i]) && soup.nativeAt(t.corners[i]).side == side;
                record->V0(int(i)) = isHere ? soup.nativeAt(t.corners[i]).vertex
                                            : m_points.vertexIn(side, points[i]);
            }
            mended.points[side].emplace(record, points);
        }
    mended.places = std::move(soup.places);
}

/// Moves the section points, and takes the triangles out that have lost a corner.
void SectionRounding::takeOver(Mended const& mended, Triangles& caps,
                               Exact::SectionFilling& filling)
{
    for (std::uint32_t p = 0; p < m_points.size(); ++p)
        if (m_isInDoubt[p])
            m_points.move(p, mended.places[p]);
    if (mended.gone.empty())
        return;
    auto const isGone = [&](Triangle* triangle) { return mended.gone.contains(triangle); };
    std::vector<Corners> kept;
    for (std::size_t i = 0; i < filling.triangles.size(); ++i) {
        Triangle* const cap = caps[sideBelow][i];
        if (isGone(cap))
            continue;
        auto const changed = mended.points[sideBelow].find(cap);
        kept.push_back(changed == mended.points[sideBelow].end() ? filling.triangles[i]
                                                                 : changed->second);
    }
    filling.triangles = std::move(kept);
    for (CutSide const side : {sideAbove, sideBelow}) {
        std::erase_if(caps[side], isGone);
        eraseAmong(m_copies.mesh(side).triangles, mended.mayGo[side], isGone);
    }
    m_gone.assign(mended.gone.begin(), mended.gone.end());
}
