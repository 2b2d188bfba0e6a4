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

UVector3<double> offset(UPoint3<float> const& from, UPoint3<float> const& to)
{
    return {double(to.X()) - from.X(), double(to.Y()) - from.Y(), double(to.Z()) - from.Z()};
}

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

    void add(UPoint3<float> const& origin, UPoint3<float> const& a, UPoint3<float> const& b,
             UPoint3<float> const& c, CutPlane const& plane)
    {
        double const cone = offset(origin, a) | (offset(origin, b) * offset(origin, c));
        volume += cone;
        volumeTerms += std::abs(cone);
        double const area = (offset(a, b) * offset(a, c)).GetLength();
        for (UPoint3<float> const* const corner : {&a, &b, &c}) {
            double const term = area * plane.heightOf(*corner);
            moment += term;
            momentTerms += std::abs(term);
        }
    }

    bool isInward() const { return volume < -roundingShare * volumeTerms; }
    CutSide centroidSide() const
    {
        return moment < -roundingShare * momentTerms ? sideBelow : sideAbove;
    }
};

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
        m.add(solids.point(m.firstTriangle, 0), solids.point(t, 0), solids.point(t, 1),
              solids.point(t, 2), plane);
    }
    return measures;
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
            if (auto const passages = m_rays.passages(RayThroughTree::pointOn(m_solids, t), piece))
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
