// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/PiecesAtPoints.h"

#include "host/mesh/ExactSigns.h"
#include "host/services/Polling.h"
#include "host/services/TrianglePair.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace {

TriangleTree::Box boxAt(UPoint3<float> const& p)
{
    return {{p[0], p[1], p[2], 0}, {p[0], p[1], p[2], 0}};
}

}  // namespace

PiecesAtPoints::Trial::Trial(PiecesAtPoints& pieces, Move const& move)
    : m_pieces(pieces), m_point(move.point), m_before(pieces.place(move.point))
{
    if (move.into) {
        m_around = pieces.m_around[m_point];
        m_corners.reserve(m_around.size());
        for (std::size_t const t : m_around)
            m_corners.push_back(pieces.m_mesh.triangles[t]);
        pieces.replaceCorners(m_around, m_point, *move.into);
    }
    pieces.m_mesh.points[m_point] = move.place;
}

PiecesAtPoints::Trial::~Trial()
{
    m_pieces.m_mesh.points[m_point] = m_before;
    for (std::size_t i = 0; i < m_around.size(); ++i)
        m_pieces.m_mesh.triangles[m_around[i]] = m_corners[i];
}

PiecesAtPoints::PiecesAtPoints(OperandSoup const& soup,
                               std::vector<std::vector<PieceTriangle>> const& pieces,
                               std::vector<Point> const& places, std::vector<bool> const& isFree,
                               StageProgress& progress)
    : m_soup(soup), m_isFree(isFree), m_around(places.size())
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

bool PiecesAtPoints::isInBounds(Point const& place) const
{
    return m_bounds.overlaps(boxAt(place));
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

bool PiecesAtPoints::isFlat(std::size_t t) const
{
    return ExactSigns::areCollinear(m_mesh.point(t, 0), m_mesh.point(t, 1), m_mesh.point(t, 2));
}

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
    Point const& p = place(point);
    float const size = std::max({std::fabs(p[0]), std::fabs(p[1]), std::fabs(p[2])});
    return std::nextafter(size, std::numeric_limits<float>::infinity()) - size;
}

bool PiecesAtPoints::hasCorner(std::size_t triangle, Index point) const
{
    Corners const& c = m_mesh.triangles[triangle];
    return c[0] == point || c[1] == point || c[2] == point;
}

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
