// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/HalfTriangles.h"

#include "host/services/planecut/PointNumbers.h"

#include <utility>

using Triangle = UTriangle<float>;

std::array<std::uint32_t, 3> capCorners(std::array<std::uint32_t, 3> const& triangle, CutSide side)
{
    auto const [a, b, c] = triangle;
    return side == sideBelow ? triangle : std::array{a, c, b};
}

TriangleTree::Box boxOf(HalfTriangle const& triangle, SectionPoints const& points)
{
    TriangleTree::Box box;
    for (HalfCorner const& corner : triangle.corners) {
        UPoint3<float> const p = corner.placeAmong(points);
        box.add({{p[0], p[1], p[2], 0}, {p[0], p[1], p[2], 0}});
    }
    return box;
}

TriangleTree::Box boxOf(Triangle const& triangle)
{
    TriangleTree::Box box;
    for (int i = 0; i < 3; ++i) {
        UPoint3<float> const& p = triangle.cP(i);
        box.add({{p[0], p[1], p[2], 0}, {p[0], p[1], p[2], 0}});
    }
    return box;
}

HalfTriangle halfTriangleOf(Triangle* record, Triangle const* source, CutSide side,
                            PointNumbers const& numbers)
{
    HalfTriangle triangle{{}, source, side, record};
    for (int i = 0; i < 3; ++i) {
        UVertex<float>* const vertex = record->V(i);
        std::uint32_t const point = numbers(side, vertex);
        triangle.corners[std::size_t(i)] = {point, point == WallCorner::none ? vertex : nullptr};
    }
    return triangle;
}

namespace {

HalfTriangle wallOf(WallPiece const& piece, WallTriangle const& corners, SideCopies const& copies)
{
    HalfTriangle triangle{{}, piece.origin, piece.side};
    for (std::size_t i = 0; i < 3; ++i)
        triangle.corners[i] =
            corners[i].isPoint() ? HalfCorner{corners[i].point}
                                 : HalfCorner{WallCorner::none, copies.sourceOf(corners[i].vertex)};
    return triangle;
}

}  // namespace

void visitTrianglesToMake(SectionWalls const& walls, SideCopies const& copies,
                          Exact::SectionFilling const& filling, VisitHalfTriangle const& visit)
{
    std::vector<WallTriangle> triangles;
    for (CutSide const side : {sideAbove, sideBelow}) {
        for (WallPiece const& piece : walls.pieces()) {
            if (piece.side != side)
                continue;
            triangles.clear();
            walls.collectTriangles(piece, triangles);
            for (WallTriangle const& corners : triangles)
                visit(wallOf(piece, corners, copies));
        }
        for (auto const& cap : filling.triangles) {
            auto const [a, b, c] = capCorners(cap, side);
            visit({{HalfCorner{a}, HalfCorner{b}, HalfCorner{c}}, nullptr, side});
        }
    }
}

void visitTrianglesMade(SectionWalls const& walls,
                        std::array<std::vector<Triangle*>, 2> const& caps,
                        PointNumbers const& numbers, VisitHalfTriangle const& visit)
{
    for (CutSide const side : {sideAbove, sideBelow}) {
        auto const& written = walls.written(side);
        for (std::size_t i = 0; i < written.size(); ++i)
            visit(halfTriangleOf(written[i], walls.origins(side)[i], side, numbers));
        for (Triangle* const cap : caps[side])
            visit(halfTriangleOf(cap, nullptr, side, numbers));
    }
}
