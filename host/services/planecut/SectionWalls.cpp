// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/SectionWalls.h"

#include "platform/geometry/MellMath.h"

#include <algorithm>

namespace {

/// Reports the share that is done, now and then.
void reportShare(std::function<void(int)> const& progress, std::size_t done, std::size_t count)
{
    constexpr std::size_t step = 4096;
    if (progress && done % step == 0)
        progress(int(100 * done / count));
}

}  // namespace

SectionWalls::SectionWalls(SideCopies& copies, SectionPoints& points, CutPlane const& plane)
    : m_copies(copies), m_points(points), m_plane(plane)
{}

/// Appends a corner unless it is the last one again: points that coincide are one.
void WallPiece::add(WallCorner const& corner)
{
    if (size == 0 || corners[std::size_t(size) - 1] != corner)
        corners[std::size_t(size++)] = corner;
}

void WallPiece::close()
{
    if (size > 1 && corners[std::size_t(size) - 1] == corners[0])
        --size;
}

SectionWalls::Corner SectionWalls::cornerOf(Vertex const* vertex)
{
    std::uint32_t const place = m_copies.placeOf(vertex);
    return m_copies.sideOf(place) == 0 ? Corner{m_points.ofVertex(place), none}
                                       : Corner{none, place};
}

/// A triangle in the plane stays with the material behind it.
CutSide SectionWalls::sideInPlane(Triangle const& triangle) const
{
    return m_plane.facing(triangle.cP(0), triangle.cP(1), triangle.cP(2)) < 0 ? sideAbove
                                                                              : sideBelow;
}

void SectionWalls::sort(SectionContours& contours, std::function<void(int)> const& progress)
{
    auto const& meeting = m_copies.meeting();
    m_points.reserve(meeting.size());
    m_pieces.reserve(2 * meeting.size());
    for (std::size_t i = 0; i < meeting.size(); ++i) {
        reportShare(progress, i, meeting.size());
        sortOne(*meeting[i], contours);
    }
}

void SectionWalls::sortOne(Triangle const& triangle, SectionContours& contours)
{
    bool hasAbove = false;
    bool hasBelow = false;
    for (int i = 0; i < 3; ++i) {
        int const side = m_copies.sideOf(m_copies.placeOf(triangle.cV(i)));
        hasAbove |= side > 0;
        hasBelow |= side < 0;
    }
    if (hasAbove && hasBelow)
        sortCut(triangle, contours);
    else if (hasAbove || hasBelow)
        sortWhole(triangle, hasAbove ? sideAbove : sideBelow, contours);
    else
        sortWhole(triangle, sideInPlane(triangle), contours);
}

SectionWalls::Piece SectionWalls::wholePiece(Triangle const& triangle, CutSide side)
{
    Piece piece{&triangle, side, 0, {}};
    for (int i = 0; i < 3; ++i)
        piece.add(cornerOf(triangle.cV(i)));
    piece.close();
    return piece;
}

void SectionWalls::sortWhole(Triangle const& triangle, CutSide side, SectionContours& contours)
{
    Piece const piece = wholePiece(triangle, side);
    for (int i = 0; i < piece.size; ++i) {
        Corner const& from = piece.corners[std::size_t(i)];
        Corner const& to = piece.corners[std::size_t((i + 1) % piece.size)];
        if (from.isPoint() && to.isPoint())
            contours.addEdge(side, from.point, to.point);
    }
    m_pieces.push_back(piece);
}

void SectionWalls::sortCut(Triangle const& triangle, SectionContours& contours)
{
    Piece above{&triangle, sideAbove, 0, {}};
    Piece below{&triangle, sideBelow, 0, {}};
    std::uint32_t leaving = none;
    std::uint32_t entering = none;
    for (int i = 0; i < 3; ++i) {
        std::uint32_t const from = m_copies.placeOf(triangle.cV(i));
        std::uint32_t const to = m_copies.placeOf(triangle.cV(Triangle::Next(i)));
        int const fromSide = m_copies.sideOf(from);
        int const toSide = m_copies.sideOf(to);
        Corner const corner = cornerOf(triangle.cV(i));
        if (fromSide >= 0)
            above.add(corner);
        if (fromSide <= 0)
            below.add(corner);
        if (fromSide == 0)
            (toSide < 0 ? leaving : entering) = corner.point;
        if (fromSide * toSide < 0) {
            std::uint32_t const point =
                fromSide < 0 ? m_points.ofEdge(from, to) : m_points.ofEdge(to, from);
            above.add({point, none});
            below.add({point, none});
            (fromSide > 0 ? leaving : entering) = point;
        }
    }
    above.close();
    below.close();
    contours.addCut(leaving, entering);
    m_pieces.push_back(above);
    m_pieces.push_back(below);
}

void SectionWalls::assignHalves(std::vector<CutSide> const& halfOfPiece,
                                std::vector<bool> const& isCutPoint)
{
    std::vector<Piece> settled;
    settled.reserve(m_pieces.size());
    for (std::size_t i = 0; i < m_pieces.size(); ++i) {
        Piece const& piece = m_pieces[i];
        auto const point = std::find_if(piece.corners.begin(), piece.corners.begin() + piece.size,
                                        [](Corner const& corner) { return corner.isPoint(); });
        bool const isTakenApart = i + 1 < m_pieces.size() && m_pieces[i + 1].origin == piece.origin;
        if (isTakenApart && !isCutPoint[point->point]) {
            settled.push_back(wholePiece(*piece.origin, halfOfPiece[i]));
            ++i;
            continue;
        }
        settled.push_back(piece);
        settled.back().side = halfOfPiece[i];
    }
    m_pieces = std::move(settled);
}

void SectionWalls::split(std::vector<Exact::SectionSegment> const& segments)
{
    for (Exact::SectionSegment const& segment : segments) {
        if (segment.splits.empty())
            continue;
        auto backwards = segment.splits;
        std::reverse(backwards.begin(), backwards.end());
        m_splits[(std::uint64_t(segment.from) << 32) | segment.to] = segment.splits;
        m_splits[(std::uint64_t(segment.to) << 32) | segment.from] = std::move(backwards);
    }
}

void SectionWalls::write(CutSide half, std::function<void(int)> const& progress)
{
    std::vector<WallTriangle> triangles;
    for (std::size_t i = 0; i < m_pieces.size(); ++i) {
        reportShare(progress, i, m_pieces.size());
        if (m_pieces[i].side != half)
            continue;
        triangles.clear();
        collectTriangles(m_pieces[i], triangles);
        for (WallTriangle const& triangle : triangles)
            writeTriangle(m_pieces[i], triangle);
    }
}

std::array<std::array<std::size_t, 3>, 2> SectionWalls::trianglesOf(Piece const& piece) const
{
    if (piece.size < 4)
        return {{{0, 1, 2}, {0, 1, 2}}};
    auto const place = [&](std::size_t i) { return placeOf(piece.corners[i]); };
    // The shorter diagonal gives the better triangles.
    if (MellMath<float>::DisPt2Pt(place(0), place(2)) <=
        MellMath<float>::DisPt2Pt(place(1), place(3)))
        return {{{0, 1, 2}, {0, 2, 3}}};
    return {{{1, 2, 3}, {1, 3, 0}}};
}

void SectionWalls::collectTriangles(Piece const& piece, std::vector<WallTriangle>& triangles) const
{
    auto const& c = piece.corners;
    auto const whole = trianglesOf(piece);
    for (int i = 0; i < piece.size - 2; ++i) {
        auto const& [first, second, third] = whole[std::size_t(i)];
        collectParts({c[first], c[second], c[third]}, triangles);
    }
}

std::vector<std::uint32_t> const* SectionWalls::splitsOf(Corner const& from, Corner const& to) const
{
    if (m_splits.empty() || !from.isPoint() || !to.isPoint())
        return nullptr;
    auto const found = m_splits.find((std::uint64_t(from.point) << 32) | to.point);
    return found == m_splits.end() ? nullptr : &found->second;
}

/// The parts of a triangle at the first of its edges that is split, or else itself.
void SectionWalls::collectParts(WallTriangle const& corners, std::vector<WallTriangle>& parts) const
{
    for (std::size_t i = 0; i < 3; ++i) {
        Corner const& to = corners[(i + 1) % 3];
        Corner const& apex = corners[(i + 2) % 3];
        auto const* const splits = splitsOf(corners[i], to);
        if (!splits)
            continue;
        Corner last = corners[i];
        for (std::uint32_t const split : *splits) {
            collectParts({last, {split, none}, apex}, parts);
            last = {split, none};
        }
        collectParts({last, to, apex}, parts);
        return;
    }
    parts.push_back(corners);
}

void SectionWalls::writeTriangle(Piece const& piece, WallTriangle const& corners)
{
    auto* const triangle = new Triangle;
    for (int i = 0; i < 3; ++i)
        triangle->V0(i) = vertexOf(piece.side, corners[std::size_t(i)]);
    triangle->N() = piece.origin->cN();
    m_copies.mesh(piece.side).AddTriangle(triangle);
    m_written[piece.side].push_back(triangle);
    m_origins[piece.side].push_back(piece.origin);
}

SectionWalls::Vertex* SectionWalls::vertexOf(CutSide side, Corner const& corner)
{
    return corner.isPoint() ? m_points.vertexIn(side, corner.point)
                            : m_copies.copyIn(side, corner.vertex);
}

UPoint3<float> SectionWalls::placeOf(Corner const& corner) const
{
    return corner.isPoint() ? m_points.place(corner.point) : m_copies.pointAt(corner.vertex);
}
