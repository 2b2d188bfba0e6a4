// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/UntouchedShells.h"

#include "host/services/RayThroughTree.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace {

constexpr std::uint32_t none = UINT32_MAX;
// Sums over many triangles are off by less than this share of their terms.
constexpr double roundingShare = 1e-9;

/// Sums over the triangles of one piece.
struct Measures
{
    std::uint32_t firstTriangle = none;
    std::uint32_t triangleCount = 0;
    /// Six times the volume.
    double volume = 0;
    double volumeTerms = 0;
    /// Area times height above the plane.
    double moment = 0;
    double momentTerms = 0;

    bool isInward() const { return volume < -roundingShare * volumeTerms; }
    CutSide centroidSide() const
    {
        return moment < -roundingShare * momentTerms ? sideBelow : sideAbove;
    }
};

UVector3<double> offset(UPoint3<float> const& from, UPoint3<float> const& to)
{
    return {double(to.X()) - from.X(), double(to.Y()) - from.Y(), double(to.Z()) - from.Z()};
}

std::vector<Measures> measure(MeshArrays const& solids, std::vector<std::uint32_t> const& pieceOf,
                              CutPlane const& plane, std::size_t pieceCount,
                              StageProgress& progress)
{
    std::vector<Measures> measures(pieceCount);
    for (std::uint32_t t = 0; t < pieceOf.size(); ++t) {
        if (t % 16384 == 0)
            progress.add(0);
        Measures& m = measures[pieceOf[t]];
        if (m.firstTriangle == none)
            m.firstTriangle = t;
        ++m.triangleCount;
        UPoint3<float> const& origin = solids.point(m.firstTriangle, 0);
        UPoint3<float> const &a = solids.point(t, 0), &b = solids.point(t, 1),
                             &c = solids.point(t, 2);
        double const volume = offset(origin, a) | (offset(origin, b) * offset(origin, c));
        m.volume += volume;
        m.volumeTerms += std::abs(volume);
        double const area = (offset(a, b) * offset(a, c)).GetLength();
        double const heights[3] = {plane.heightOf(a), plane.heightOf(b), plane.heightOf(c)};
        m.moment += area * (heights[0] + heights[1] + heights[2]);
        m.momentTerms +=
            area * (std::abs(heights[0]) + std::abs(heights[1]) + std::abs(heights[2]));
    }
    return measures;
}

/// A point on a triangle that is unlikely to lie straight behind an edge of a regular grid.
RayThroughTree::Origin pointOn(MeshArrays const& mesh, std::uint32_t triangle)
{
    RayThroughTree::Origin origin;
    for (int axis = 0; axis < 3; ++axis)
        origin[std::size_t(axis)] = 0.3117 * mesh.point(triangle, 0)[axis] +
                                    0.2939 * mesh.point(triangle, 1)[axis] +
                                    0.3944 * mesh.point(triangle, 2)[axis];
    return origin;
}

/// Finds the solids around cavities.
class Surroundings
{
public:
    Surroundings(MeshArrays const& solids, std::vector<std::uint32_t> const& pieceOf,
                 std::vector<Measures> const& measures, StageProgress& progress)
        : m_solids(solids),
          m_pieceOf(pieceOf),
          m_measures(measures),
          m_topology(checkTopology(solids, progress)),
          m_tree(solids, m_topology, progress),
          m_rays(solids, m_topology, m_tree)
    {
        // For the rays a shell is a whole piece.
        m_topology.shellOf = pieceOf;
    }

    /// The smallest solid around a piece, or none.
    std::uint32_t solidAround(std::uint32_t piece) const
    {
        // A ray that comes near to an edge says nothing: others are tried.
        constexpr int mostRays = 16;
        int tried = 0;
        for (std::uint32_t t = m_measures[piece].firstTriangle;
             t < m_pieceOf.size() && tried < mostRays; ++t) {
            if (m_pieceOf[t] != piece || m_topology.isDegenerate[t])
                continue;
            ++tried;
            if (auto const passages = m_rays.passages(pointOn(m_solids, t), piece))
                return smallestOf(*passages);
        }
        return none;
    }

private:
    std::uint32_t smallestOf(std::vector<RayThroughTree::Passage> const& passages) const
    {
        std::map<std::uint32_t, int> turns;
        for (auto const& passage : passages)
            turns[passage.shell] += passage.direction;
        std::uint32_t smallest = none;
        for (auto const& [piece, count] : turns)
            if (count > 0 &&
                (smallest == none || m_measures[piece].volume < m_measures[smallest].volume))
                smallest = piece;
        return smallest;
    }

    MeshArrays const& m_solids;
    std::vector<std::uint32_t> const& m_pieceOf;
    std::vector<Measures> const& m_measures;
    TopologyReport m_topology;
    TriangleTree m_tree;
    RayThroughTree m_rays;
};

}  // namespace

void settleUntouched(MeshArrays const& solids, std::vector<std::uint32_t> const& pieceOf,
                     CutPlane const& plane, std::vector<std::optional<CutSide>>& halfOfPiece,
                     StageProgress& progress)
{
    if (std::all_of(halfOfPiece.begin(), halfOfPiece.end(),
                    [](auto const& half) { return half.has_value(); }))
        return;
    std::vector<Measures> const measures =
        measure(solids, pieceOf, plane, halfOfPiece.size(), progress);
    std::vector<std::uint32_t> cavities;
    for (std::uint32_t piece = 0; piece < halfOfPiece.size(); ++piece) {
        if (halfOfPiece[piece])
            continue;
        if (measures[piece].isInward())
            cavities.push_back(piece);
        halfOfPiece[piece] = measures[piece].centroidSide();
    }
    if (cavities.empty())
        return;
    Surroundings const surroundings(solids, pieceOf, measures, progress);
    for (std::uint32_t const cavity : cavities) {
        progress.add(0);
        if (std::uint32_t const solid = surroundings.solidAround(cavity); solid != none)
            halfOfPiece[cavity] = halfOfPiece[solid];
    }
}
