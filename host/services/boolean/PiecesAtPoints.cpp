// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/PiecesAtPoints.h"

#include "host/mesh/ExactSigns.h"
#include "host/services/Polling.h"
#include "host/services/TrianglePair.h"
#include "host/services/boolean/MeetingInReach.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <limits>

namespace {

using Point = UPoint3<float>;
using Box = TriangleTree::Box;

constexpr int mostStepsPerPair = 6;
/// What a test of two triangles costs beside one of two boxes.
constexpr std::size_t workPerMeeting = 30;
/// How far a point may be moved at a time, in units of the last place.
constexpr std::array moveUnits{1, 2, 4, 8, 16};
constexpr double joinUnits = 32;
constexpr std::size_t mostJoins = 4;

double squaredLength(Point const& a, Point const& b)
{
    ExactSigns::Offset const d(a, b);
    return d.x * d.x + d.y * d.y + d.z * d.z;
}

float unitOf(Point const& p)
{
    float const size = std::max({std::fabs(p[0]), std::fabs(p[1]), std::fabs(p[2])});
    return std::nextafter(size, std::numeric_limits<float>::infinity()) - size;
}

Box boxAt(Point const& p)
{
    return {{p[0], p[1], p[2], 0}, {p[0], p[1], p[2], 0}};
}

Box grown(Box box, float reach)
{
    for (std::size_t k = 0; k < 3; ++k) {
        box.low[k] -= reach;
        box.high[k] += reach;
    }
    return box;
}

}  // namespace

PiecesAtPoints::PiecesAtPoints(OperandSoup const& soup,
                               std::vector<std::vector<PieceTriangle>> const& pieces,
                               std::vector<Point> const& places, std::vector<bool> const& isFree,
                               Work work, StageProgress& progress)
    : m_soup(soup), m_isFree(isFree), m_limits(work), m_around(places.size())
{
    m_mesh.points = places;
    Polling polling(progress);
    for (std::vector<Point> const* const points : {&soup.mesh.points, &places})
        for (Point const& p : *points) {
            polling.step();
            m_bounds.add(boxAt(p));
        }
    for (std::size_t i = 0; i < pieces.size(); ++i)
        for (PieceTriangle const& t : pieces[i]) {
            polling.step();
            for (Index const corner : t.corners)
                m_around[corner].push_back(m_mesh.triangles.size());
            m_mesh.triangles.push_back(t.corners);
            m_sources.push_back({t.triangle, t.isTurned, i});
        }
}

std::vector<PiecesAtPoints::Pair> PiecesAtPoints::pairsBetween(std::size_t begin, std::size_t end,
                                                               StageProgress& progress) const
{
    std::vector<PieceTriangle> triangles;
    std::vector<std::size_t> which;
    Polling polling(progress);
    for (std::size_t t = begin; t < end; ++t, polling.step())
        if (!isGone(t)) {
            triangles.push_back(
                {m_mesh.triangles[t], m_sources[t].triangle, m_sources[t].isTurned});
            which.push_back(t);
        }
    auto pairs = RoundingCrossings(m_soup, m_isFree).find(triangles, m_mesh.points, progress);
    for (Pair& pair : pairs)
        pair = {which[pair[0]], which[pair[1]]};
    return pairs;
}

bool PiecesAtPoints::doMeet(std::size_t t, std::size_t u) const
{
    return !isFlat(t) && !isFlat(u) && doTrianglesMeet(m_mesh, t, u);
}

bool PiecesAtPoints::mend(Pair const& pair, StageProgress& progress)
{
    bool isChanged = false;
    if (RoundingCrossings::isDeep(m_mesh, pair[0], pair[1]))
        return false;
    std::size_t const before = m_work;
    auto const isMended = [&] {
        return isGone(pair[0]) || isGone(pair[1]) || !doMeet(pair[0], pair[1]);
    };
    for (int step = 0; step < mostStepsPerPair && isWorthWork() && !isMended(); ++step) {
        if (!takeBestMove(pair, progress))
            break;
        isChanged = true;
    }
    if (m_work > before)
        (isMended() ? m_workOfMended : m_workInVain) += m_work - before;
    return isChanged;
}

/// Surfaces that lie on each other all over, as those of shells that hardly differ do, cannot be
/// mended by moving points: there nearly all work is in vain, and nearly none where solids are sound.
bool PiecesAtPoints::isWorthWork() const
{
    constexpr std::size_t vainForMended = 4;
    return m_work < m_limits.most &&
           m_workInVain < m_limits.mostInVain + vainForMended * m_workOfMended;
}

bool PiecesAtPoints::isFlat(std::size_t t) const
{
    return ExactSigns::areCollinear(m_mesh.point(t, 0), m_mesh.point(t, 1), m_mesh.point(t, 2));
}

/// Whether a triangle looks another way than the one that it is a part of.
bool PiecesAtPoints::isTurned(std::size_t t) const
{
    Source const& source = m_sources[t];
    auto const normal = [](Point const& a, Point const& b, Point const& c) {
        ExactSigns::Offset const u(a, b), v(a, c);
        return UVector3<double>(u.y * v.z - u.z * v.y, u.z * v.x - u.x * v.z,
                                u.x * v.y - u.y * v.x);
    };
    MeshArrays const& soup = m_soup.mesh;
    double const along = normal(m_mesh.point(t, 0), m_mesh.point(t, 1), m_mesh.point(t, 2)) |
                         normal(soup.point(source.triangle, 0), soup.point(source.triangle, 1),
                                soup.point(source.triangle, 2));
    return source.isTurned ? along >= 0 : along <= 0;
}

PiecesAtPoints::Box PiecesAtPoints::boxOf(std::size_t t) const
{
    Box box;
    for (int k = 0; k < 3; ++k)
        box.add(boxAt(m_mesh.point(t, k)));
    return box;
}

float PiecesAtPoints::unitAt(Index point) const
{
    return unitOf(m_mesh.points[point]);
}

bool PiecesAtPoints::takeBestMove(Pair const& pair, StageProgress& progress)
{
    std::set<Index> points;
    for (std::size_t const t : pair)
        for (Index const corner : m_mesh.triangles[t])
            if (m_isFree[corner] && !isKnownVain(corner))
                points.insert(corner);
    if (points.empty())
        return false;
    std::vector<Near> const near = trianglesNear(points, progress);
    std::optional<Move> best;
    for (Index const point : points) {
        progress.add(0);
        bool const isFirst = !best;
        listNeighbours(point, near);
        int const before = faultsNow();
        if (best && before <= best->gain)
            continue;
        for (Move& move : movesOf(point)) {
            // A point that is moved leaves what meets wherever it is; one that is joined may not.
            if (!move.into && before - int(m_lasting.size()) <= (best ? best->gain : 0))
                break;
            move.gain = before - faultsAfter(move, before - (best ? best->gain : 0));
            if (move.gain > 0 && (!best || move.gain > best->gain))
                best = move;
            if (move.gain == before)
                break;
        }
        if (best && best->point == point && best->gain == before)
            break;
        if (isFirst && !best)
            m_vain[point] = {boxAround(point), m_changes.size()};
    }
    if (best)
        apply(*best);
    return best.has_value();
}

/// By how much a point can come nearer to others in one move.
float PiecesAtPoints::reachOf(Index point) const
{
    return unitAt(point) * float(2 * joinUnits);
}

/// Where the triangles around a point are, wherever it is moved.
PiecesAtPoints::Box PiecesAtPoints::boxAround(Index point) const
{
    Box box;
    for (std::size_t const t : m_around[point])
        if (!isGone(t))
            box.add(grown(boxOf(t), reachOf(point)));
    return box;
}

/// Whether all moves of a point were tried in vain, and nothing that they might meet has changed.
bool PiecesAtPoints::isKnownVain(Index point) const
{
    auto const known = m_vain.find(point);
    return known != m_vain.end() &&
           std::none_of(m_changes.begin() + std::ptrdiff_t(known->second.changes), m_changes.end(),
                        [&](Box const& box) { return box.overlaps(known->second.box); });
}

/// The triangles that those around some points may meet.
std::vector<PiecesAtPoints::Near> PiecesAtPoints::trianglesNear(std::set<Index> const& points,
                                                                StageProgress& progress)
{
    Box box;
    for (Index const point : points)
        box.add(boxAround(point));
    std::vector<Near> near;
    Polling polling(progress);
    for (std::size_t t = 0; t < m_mesh.triangles.size(); ++t, polling.step())
        if (!isGone(t))
            if (Box const own = boxOf(t); own.overlaps(box))
                near.push_back({t, own});
    m_work += m_mesh.triangles.size();
    return near;
}

/// Lists, for each triangle around a point, which others it may meet while the point moves.
void PiecesAtPoints::listNeighbours(Index point, std::vector<Near> const& near)
{
    m_neighbours.clear();
    m_obstacles.clear();
    m_lasting.clear();
    m_corners.clear();
    Box const within = boxAround(point);
    std::vector<Near const*> candidates;
    for (Near const& other : near)
        if (other.box.overlaps(within)) {
            candidates.push_back(&other);
            for (Index const corner : m_mesh.triangles[other.triangle])
                m_corners.push_back(corner);
        }
    std::sort(m_corners.begin(), m_corners.end());
    m_corners.erase(std::unique(m_corners.begin(), m_corners.end()), m_corners.end());
    float const reach = reachOf(point);
    MeetingInReach const meeting(m_mesh, point, double(reach));
    for (std::size_t const t : m_around[point]) {
        if (isGone(t))
            continue;
        Neighbours& of = m_neighbours.emplace_back();
        of.triangle = t;
        Box const box = grown(boxOf(t), reach);
        for (Near const* const other : candidates) {
            std::size_t const u = other->triangle;
            bool const isAround = hasCorner(u, point);
            if (u == t || (isAround && u < t) || m_sources[u].piece != m_sources[t].piece ||
                (!isAround && !other->box.overlaps(box)) || meeting.isNone(t, u))
                continue;
            if (meeting.isCertain(t, u))
                m_lasting.push_back({t, u});
            else
                of.others.push_back(u);
        }
    }
    m_work += m_neighbours.size() * candidates.size();
}

bool PiecesAtPoints::hasCorner(std::size_t triangle, Index point) const
{
    Corners const& c = m_mesh.triangles[triangle];
    return c[0] == point || c[1] == point || c[2] == point;
}

/// The pairs that the triangles around the point at hand are in, and those of them that are
/// flat or turned over. Puts what they meet first in their lists.
int PiecesAtPoints::faultsNow()
{
    int count = int(m_lasting.size());
    m_workPerMove = 0;
    for (Neighbours& of : m_neighbours) {
        m_workPerMove += 1 + of.others.size();
        of.met = 0;
        count += faultOf(of.triangle);
        if (isGone(of.triangle) || isFlat(of.triangle))
            continue;
        Box const box = boxOf(of.triangle);
        for (std::size_t i = 0; i < of.others.size(); ++i) {
            bool const isNear = boxOf(of.others[i]).overlaps(box);
            m_workPerMove += isNear ? workPerMeeting : 0;
            if (isNear && doMeet(of.triangle, of.others[i]))
                std::swap(of.others[i], of.others[of.met++]);
        }
        count += int(of.met);
    }
    m_work += m_workPerMove;
    return count;
}

/// The same once something has been moved: exact below a limit, at which the count may end. Most
/// moves leave what met before, and are told by this alone.
int PiecesAtPoints::faultsBelow(int limit)
{
    int count = int(std::count_if(m_lasting.begin(), m_lasting.end(), [this](Pair const& pair) {
        return !isGone(pair[0]) && !isGone(pair[1]);
    }));
    for (Neighbours const& of : m_neighbours) {
        if (count >= limit)
            return count;
        count += meetings(of, 0, of.met);
    }
    if (count + obstaclesMet(limit - count) >= limit)
        return limit;
    for (Neighbours const& of : m_neighbours)
        count += faultOf(of.triangle);
    for (Neighbours const& of : m_neighbours) {
        if (count >= limit)
            return count;
        count += meetings(of, of.met, of.others.size());
    }
    return count;
}

/// How many meet, up to a limit, of the pairs that moves of the point at hand met last: the next move
/// mostly meets them too.
int PiecesAtPoints::obstaclesMet(int limit) const
{
    int count = 0;
    for (std::size_t i = 0; i < m_obstacles.size() && count < limit; ++i)
        count += doMeetNow(m_obstacles[i][0], m_obstacles[i][1]);
    return count;
}

void PiecesAtPoints::addObstacle(Pair const& pair)
{
    constexpr std::size_t most = 8;
    if (std::find(m_obstacles.begin(), m_obstacles.end(), pair) != m_obstacles.end())
        return;
    if (m_obstacles.size() == most)
        m_obstacles.pop_back();
    m_obstacles.insert(m_obstacles.begin(), pair);
}

bool PiecesAtPoints::doMeetNow(std::size_t t, std::size_t u) const
{
    return !isGone(t) && !isGone(u) && boxOf(t).overlaps(boxOf(u)) && doMeet(t, u);
}

/// 1 for a triangle that is flat or turned over.
int PiecesAtPoints::faultOf(std::size_t t) const
{
    return !isGone(t) && (isFlat(t) || isTurned(t)) ? 1 : 0;
}

/// How many of some others a triangle meets.
int PiecesAtPoints::meetings(Neighbours const& of, std::size_t begin, std::size_t end)
{
    if (begin == end || isGone(of.triangle) || isFlat(of.triangle))
        return 0;
    int count = 0;
    Box const box = boxOf(of.triangle);
    for (std::size_t i = begin; i < end; ++i) {
        std::size_t const u = of.others[i];
        if (isGone(u) || !boxOf(u).overlaps(box) || isFlat(u) ||
            !doTrianglesMeet(m_mesh, of.triangle, u))
            continue;
        ++count;
        if (i >= of.met)
            addObstacle({of.triangle, u});
    }
    return count;
}

/// Whether a place is that of a point nearby, but for one or two of them.
bool PiecesAtPoints::isTaken(Point const& place, Index except, Index exceptToo) const
{
    return std::any_of(m_corners.begin(), m_corners.end(), [&](Index corner) {
        return corner != except && corner != exceptToo && m_mesh.points[corner] == place;
    });
}

std::vector<PiecesAtPoints::Move> PiecesAtPoints::movesOf(Index point) const
{
    std::vector<Move> moves = joinsOf(point);
    Point const& from = m_mesh.points[point];
    float const unit = unitAt(point);
    for (int const units : moveUnits)
        for (int direction = 0; direction < 27; ++direction) {
            UVector3<float> const step(float(direction % 3 - 1), float(direction / 3 % 3 - 1),
                                       float(direction / 9 - 1));
            Point const place = from + step * (unit * float(units));
            // A side that lies flat on the box stays flat, or bends inward.
            if (direction != 13 && m_bounds.overlaps(boxAt(place)))
                moves.push_back({point, place, {}});
        }
    return moves;
}

/// The moves into the place of a neighbour, the nearest first.
std::vector<PiecesAtPoints::Move> PiecesAtPoints::joinsOf(Index point) const
{
    double const reach = joinUnits * double(unitAt(point));
    std::vector<std::pair<double, Index>> near;
    for (std::size_t const t : m_around[point])
        if (!isGone(t))
            for (Index const other : m_mesh.triangles[t])
                if (other != point)
                    if (double const d = squaredLength(m_mesh.points[point], m_mesh.points[other]);
                        d <= reach * reach)
                        near.emplace_back(d, other);
    std::sort(near.begin(), near.end());
    near.erase(std::unique(near.begin(), near.end()), near.end());
    std::vector<Move> moves;
    for (auto const& [distance, other] : near)
        if (moves.size() < mostJoins && canJoin(point, other))
            moves.push_back({point, m_mesh.points[other], other});
    return moves;
}

/// Whether two points can become one in all pieces: the triangles at their edge have all the
/// neighbours that both points share as corners.
bool PiecesAtPoints::canJoin(Index a, Index b) const
{
    for (std::size_t piece = 0; piece < pieceCount(); ++piece) {
        std::set<Index> const ofA = neighboursOf(a, piece), ofB = neighboursOf(b, piece);
        if (ofA.empty() || ofB.empty())
            continue;
        if (!ofA.contains(b))
            return false;
        std::vector<Index> shared;
        std::set_intersection(ofA.begin(), ofA.end(), ofB.begin(), ofB.end(),
                              std::back_inserter(shared));
        std::size_t atEdge = 0;
        for (std::size_t const t : m_around[a])
            if (!isGone(t) && m_sources[t].piece == piece) {
                atEdge += hasCorner(t, b);
                // Else it would come to lie on one of the other point's.
                if (shared.size() == 2 && hasCorner(t, shared[0]) && hasCorner(t, shared[1]))
                    return false;
            }
        if (shared.size() != 2 || atEdge != 2)
            return false;
    }
    return true;
}

std::set<PiecesAtPoints::Index> PiecesAtPoints::neighboursOf(Index point, std::size_t piece) const
{
    std::set<Index> neighbours;
    for (std::size_t const t : m_around[point])
        if (!isGone(t) && m_sources[t].piece == piece)
            for (Index const corner : m_mesh.triangles[t])
                if (corner != point)
                    neighbours.insert(corner);
    return neighbours;
}

/// The faults that a move leaves; `limit` or more if it leaves so many, or must not be.
int PiecesAtPoints::faultsAfter(Move const& move, int limit)
{
    m_work += m_workPerMove;
    Point const before = m_mesh.points[move.point];
    std::vector<std::size_t> const around =
        move.into ? m_around[move.point] : std::vector<std::size_t>();
    std::vector<Corners> known;
    known.reserve(around.size());
    for (std::size_t const t : around)
        known.push_back(m_mesh.triangles[t]);
    if (move.into)
        replaceCorners(around, move.point, *move.into);
    m_mesh.points[move.point] = move.place;
    int const after = faultsBelow(limit);
    m_mesh.points[move.point] = before;
    for (std::size_t i = 0; i < around.size(); ++i)
        m_mesh.triangles[around[i]] = known[i];
    // Two points in one place would be an edge of more than two triangles, or none.
    bool const isForbidden =
        after < limit && isTaken(move.place, move.point, move.into.value_or(move.point));
    return isForbidden ? limit : after;
}

void PiecesAtPoints::replaceCorners(std::vector<std::size_t> const& triangles, Index point,
                                    Index by)
{
    for (std::size_t const t : triangles)
        for (Index& corner : m_mesh.triangles[t])
            if (corner == point)
                corner = by;
}

void PiecesAtPoints::apply(Move const& move)
{
    // What the moved triangles leave, and where they come.
    m_changes.push_back(boxAround(move.point));
    if (!move.into) {
        m_mesh.points[move.point] = move.place;
        return;
    }
    std::vector<std::size_t>& around = m_around[move.point];
    replaceCorners(around, move.point, *move.into);
    std::vector<std::size_t>& joined = m_around[*move.into];
    for (std::size_t const t : around)
        if (!isGone(t))
            joined.push_back(t);
    around.clear();
}
