// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/SolidMending.h"

#include "host/services/Polling.h"
#include "host/services/boolean/PlaceKey.h"
#include "host/services/boolean/RoundingMending.h"

#include <algorithm>

namespace {

using Index = std::uint32_t;
using Point = UPoint3<float>;
using Corners = MeshArrays::Corners;

/// Points of several meshes by their places.
class JoinedPoints
{
public:
    Index numberOf(Point const& place)
    {
        Index& number = m_numbers[placeKey(place)];
        if (number == PointsByPlace::none) {
            number = Index(m_places.size());
            m_places.push_back(place);
        }
        return number;
    }

    Corners cornersOf(MeshArrays const& mesh, std::size_t triangle)
    {
        return {numberOf(mesh.point(triangle, 0)), numberOf(mesh.point(triangle, 1)),
                numberOf(mesh.point(triangle, 2))};
    }

    std::vector<Point> const& places() const { return m_places; }

private:
    PointsByPlace m_numbers;
    std::vector<Point> m_places;
};

Corners sorted(Corners corners)
{
    std::sort(corners.begin(), corners.end());
    return corners;
}

/// The solids' triangles as pieces of a soup in which each is its own source.
class SolidPieces
{
public:
    SolidPieces(std::span<MeshArrays const* const> operands, std::span<MeshArrays* const> solids,
                StageProgress& progress)
    {
        Polling polling(progress);
        JoinedPoints points;
        std::vector<Corners> ofOperands;
        for (MeshArrays const* const operand : operands)
            for (std::size_t t = 0; t < operand->triangles.size(); ++t, polling.step())
                ofOperands.push_back(sorted(points.cornersOf(*operand, t)));
        std::size_t const fixed = points.places().size();
        sortPolled(ofOperands, progress, std::less<>());
        for (MeshArrays const* const solid : solids) {
            pieces.emplace_back();
            for (std::size_t t = 0; t < solid->triangles.size(); ++t, polling.step()) {
                Corners const corners = points.cornersOf(*solid, t);
                bool const isOfOperand =
                    std::binary_search(ofOperands.begin(), ofOperands.end(), sorted(corners));
                pieces.back().push_back({corners, Index(soup.mesh.triangles.size()), false});
                // What begins with another corner is not as an operand had it.
                soup.mesh.triangles.push_back(
                    isOfOperand ? corners : Corners{corners[1], corners[2], corners[0]});
            }
        }
        places = soup.mesh.points = points.places();
        soup.firstPointOfSecond = soup.pointCount();
        soup.firstTriangleOfSecond = soup.triangleCount();
        isFree.assign(places.size(), true);
        std::fill_n(isFree.begin(), fixed, false);
    }

    MeshArrays solid(std::size_t which) const
    {
        MeshArrays mesh;
        std::vector<Index> locals(places.size(), PointsByPlace::none);
        for (PieceTriangle const& t : pieces[which]) {
            Corners corners;
            for (std::size_t k = 0; k < 3; ++k) {
                Index& local = locals[t.corners[k]];
                if (local == PointsByPlace::none) {
                    local = Index(mesh.points.size());
                    mesh.points.push_back(places[t.corners[k]]);
                }
                corners[k] = local;
            }
            mesh.triangles.push_back(corners);
        }
        return mesh;
    }

    OperandSoup soup;
    std::vector<std::vector<PieceTriangle>> pieces;
    std::vector<Point> places;
    std::vector<bool> isFree;
};

}  // namespace

std::vector<Point> mendSolids(std::span<MeshArrays const* const> operands,
                              std::span<MeshArrays* const> solids, StageProgress& progress)
{
    SolidPieces pieces(operands, solids, progress);
    auto left =
        RoundingMending(pieces.soup, pieces.pieces, pieces.places, pieces.isFree).run(progress);
    bool isChanged = pieces.places != pieces.soup.mesh.points;
    for (std::size_t i = 0; i < solids.size(); ++i)
        isChanged |= pieces.pieces[i].size() != solids[i]->triangles.size();
    for (std::size_t i = 0; i < solids.size() && isChanged; ++i)
        *solids[i] = pieces.solid(i);
    return left;
}
