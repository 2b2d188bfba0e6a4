// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/PairMending.h"

#include "host/mesh/ExactSigns.h"
#include "host/services/Polling.h"
#include "host/services/TrianglePair.h"
#include "host/services/boolean/MeetingInReach.h"

#include <algorithm>
#include <array>

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

Box grown(Box box, float reach)
{
    for (std::size_t k = 0; k < 3; ++k) {
        box.low[k] -= reach;
        box.high[k] += reach;
    }
    return box;
}

}  // namespace

bool PairMending::mend(Pair const& pair, StageProgress& progress)
{
    bool isChanged = false;
    if (RoundingCrossings::isDeep(m_pieces.mesh(), pair[0], pair[1]))
        return false;
    std::size_t const before = m_work;
    auto const isMended = [&] {
        return m_pieces.isGone(pair[0]) || m_pieces.isGone(pair[1]) ||
               !m_pieces.doMeet(pair[0], pair[1]);
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
bool PairMending::isWorthWork() const
{
    constexpr std::size_t vainForMended = 4;
    return m_work < m_limits.most &&
           m_workInVain < m_limits.mostInVain + vainForMended * m_workOfMended;
}

bool PairMending::takeBestMove(Pair const& pair, StageProgress& progress)
{
    std::set<Index> points;
    for (std::size_t const t : pair)
        for (Index const corner : m_pieces.triangles()[t])
            if (m_pieces.isFree(corner) && !isKnownVain(corner))
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
float PairMending::reachOf(Index point) const
{
    return m_pieces.unitAt(point) * float(2 * joinUnits);
}

/// Where the triangles around a point are, wherever it is moved.
PairMending::Box PairMending::boxAround(Index point) const
{
    Box box;
    for (std::size_t const t : m_pieces.around(point))
        if (!m_pieces.isGone(t))
            box.add(grown(m_pieces.boxOf(t), reachOf(point)));
    return box;
}

/// Whether all moves of a point were tried in vain, and nothing that they might meet has changed.
bool PairMending::isKnownVain(Index point) const
{
    auto const known = m_vain.find(point);
    return known != m_vain.end() &&
           std::none_of(m_changes.begin() + std::ptrdiff_t(known->second.changes), m_changes.end(),
                        [&](Box const& box) { return box.overlaps(known->second.box); });
}

/// The triangles that those around some points may meet.
std::vector<PairMending::Near> PairMending::trianglesNear(std::set<Index> const& points,
                                                          StageProgress& progress)
{
    Box box;
    for (Index const point : points)
        box.add(boxAround(point));
    std::vector<Near> near;
    Polling polling(progress);
    for (std::size_t t = 0; t < m_pieces.triangles().size(); ++t, polling.step())
        if (!m_pieces.isGone(t))
            if (Box const own = m_pieces.boxOf(t); own.overlaps(box))
                near.push_back({t, own});
    m_work += m_pieces.triangles().size();
    return near;
}

/// Lists, for each triangle around a point, which others it may meet while the point moves.
void PairMending::listNeighbours(Index point, std::vector<Near> const& near)
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
            for (Index const corner : m_pieces.triangles()[other.triangle])
                m_corners.push_back(corner);
        }
    std::sort(m_corners.begin(), m_corners.end());
    m_corners.erase(std::unique(m_corners.begin(), m_corners.end()), m_corners.end());
    float const reach = reachOf(point);
    MeetingInReach const meeting(m_pieces.mesh(), point, double(reach));
    for (std::size_t const t : m_pieces.around(point)) {
        if (m_pieces.isGone(t))
            continue;
        Neighbours& of = m_neighbours.emplace_back();
        of.triangle = t;
        Box const box = grown(m_pieces.boxOf(t), reach);
        for (Near const* const other : candidates) {
            std::size_t const u = other->triangle;
            bool const isAround = m_pieces.hasCorner(u, point);
            if (u == t || (isAround && u < t) || m_pieces.pieceOf(u) != m_pieces.pieceOf(t) ||
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

/// The pairs that the triangles around the point at hand are in, and those of them that are
/// flat or turned over. Puts what they meet first in their lists.
int PairMending::faultsNow()
{
    int count = int(m_lasting.size());
    m_workPerMove = 0;
    for (Neighbours& of : m_neighbours) {
        m_workPerMove += 1 + of.others.size();
        of.met = 0;
        count += faultOf(of.triangle);
        if (m_pieces.isGone(of.triangle) || m_pieces.isFlat(of.triangle))
            continue;
        Box const box = m_pieces.boxOf(of.triangle);
        for (std::size_t i = 0; i < of.others.size(); ++i) {
            bool const isNear = m_pieces.boxOf(of.others[i]).overlaps(box);
            m_workPerMove += isNear ? workPerMeeting : 0;
            if (isNear && m_pieces.doMeet(of.triangle, of.others[i]))
                std::swap(of.others[i], of.others[of.met++]);
        }
        count += int(of.met);
    }
    m_work += m_workPerMove;
    return count;
}

/// The same once something has been moved: exact below a limit, at which the count may end. Most
/// moves leave what met before, and are told by this alone.
int PairMending::faultsBelow(int limit)
{
    int count = int(std::count_if(m_lasting.begin(), m_lasting.end(), [this](Pair const& pair) {
        return !m_pieces.isGone(pair[0]) && !m_pieces.isGone(pair[1]);
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
int PairMending::obstaclesMet(int limit) const
{
    int count = 0;
    for (std::size_t i = 0; i < m_obstacles.size() && count < limit; ++i)
        count += doMeetNow(m_obstacles[i][0], m_obstacles[i][1]);
    return count;
}

void PairMending::addObstacle(Pair const& pair)
{
    constexpr std::size_t most = 8;
    if (std::find(m_obstacles.begin(), m_obstacles.end(), pair) != m_obstacles.end())
        return;
    if (m_obstacles.size() == most)
        m_obstacles.pop_back();
    m_obstacles.insert(m_obstacles.begin(), pair);
}

bool PairMending::doMeetNow(std::size_t t, std::size_t u) const
{
    return !m_pieces.isGone(t) && !m_pieces.isGone(u) &&
           m_pieces.boxOf(t).overlaps(m_pieces.boxOf(u)) && m_pieces.doMeet(t, u);
}

/// 1 for a triangle that is flat or turned over.
int PairMending::faultOf(std::size_t t) const
{
    return !m_pieces.isGone(t) && (m_pieces.isFlat(t) || m_pieces.isTurned(t)) ? 1 : 0;
}

/// How many of some others a triangle meets.
int PairMending::meetings(Neighbours const& of, std::size_t begin, std::size_t end)
{
    if (begin == end || m_pieces.isGone(of.triangle) || m_pieces.isFlat(of.triangle))
        return 0;
    int count = 0;
    Box const box = m_pieces.boxOf(of.triangle);
    for (std::size_t i = begin; i < end; ++i) {
        std::size_t const u = of.others[i];
        if (m_pieces.isGone(u) || !m_pieces.boxOf(u).overlaps(box) || m_pieces.isFlat(u) ||
            !doTrianglesMeet(m_pieces.mesh(), of.triangle, u))
            continue;
        ++count;
        if (i >= of.met)
            addObstacle({of.triangle, u});
    }
    return count;
}

/// Whether a place is that of a point nearby, but for one or two of them.
bool PairMending::isTaken(Point const& place, Index except, Index exceptToo) const
{
    return std::any_of(m_corners.begin(), m_corners.end(), [&](Index corner) {
        return corner != except && corner != exceptToo && m_pieces.place(corner) == place;
    });
}

std::vector<PairMending::Move> PairMending::movesOf(Index point) const
{
    std::vector<Move> moves = joinsOf(point);
    Point const& from = m_pieces.place(point);
    float const unit = m_pieces.unitAt(point);
    for (int const units : moveUnits)
        for (int direction = 0; direction < 27; ++direction) {
            UVector3<float> const step(float(direction % 3 - 1), float(direction / 3 % 3 - 1),
                                       float(direction / 9 - 1));
            Point const place = from + step * (unit * float(units));
            // A side that lies flat on the box stays flat, or bends inward.
            if (direction != 13 && m_pieces.isInBounds(place))
                moves.push_back({{point, place, {}}});
        }
    return moves;
}

/// The moves into the place of a neighbour, the nearest first.
std::vector<PairMending::Move> PairMending::joinsOf(Index point) const
{
    double const reach = joinUnits * double(m_pieces.unitAt(point));
    std::vector<std::pair<double, Index>> near;
    for (std::size_t const t : m_pieces.around(point))
        if (!m_pieces.isGone(t))
            for (Index const other : m_pieces.triangles()[t])
                if (other != point)
                    if (double const d =
                            squaredLength(m_pieces.place(point), m_pieces.place(other));
                        d <= reach * reach)
                        near.emplace_back(d, other);
    std::sort(near.begin(), near.end());
    near.erase(std::unique(near.begin(), near.end()), near.end());
    std::vector<Move> moves;
    for (auto const& [distance, other] : near)
        if (moves.size() < mostJoins && m_pieces.canJoin(point, other))
            moves.push_back({{point, m_pieces.place(other), other}});
    return moves;
}

/// The faults that a move leaves; `limit` or more if it leaves so many, or must not be.
int PairMending::faultsAfter(Move const& move, int limit)
{
    m_work += m_workPerMove;
    int const after = [&] {
        PiecesAtPoints::Trial const trial(m_pieces, move);
        return faultsBelow(limit);
    }();
    // Two points in one place would be an edge of more than two triangles, or none.
    bool const isForbidden =
        after < limit && isTaken(move.place, move.point, move.into.value_or(move.point));
    return isForbidden ? limit : after;
}

void PairMending::apply(Move const& move)
{
    // What the moved triangles leave, and where they come.
    m_changes.push_back(boxAround(move.point));
    m_pieces.apply(move);
}
