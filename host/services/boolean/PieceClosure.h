// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/StageProgress.h"
#include "host/services/boolean/BooleanPieces.h"
#include "platform/mesh/UMesh.h"

#include <cstdint>
#include <span>

/// Whether triangles close among themselves: each edge is run along as often one way as the other.
bool areClosed(std::span<MeshArrays::Corners const> triangles, StageProgress& progress);

/// Tells whether the triangles that were made for a piece close together with those that were copied
/// for it, of which only a sum is known: so a piece of any size is looked at in the time of what is
/// new in it. It is what is left to go wrong once labels and curves agree: a copied triangle whose
/// cell tells another side than the curves around it, or an edge that mending has opened.
class PieceClosure
{
public:
    /// places    by vertex of the part in the soup: its place in the part; must outlive this
    /// partSize  the number of the part's vertices
    PieceClosure(std::span<std::uint32_t const> places, std::uint32_t partSize)
        : m_places(places), m_partSize(partSize)
    {}

    /// Whether every edge is run along as often one way as the other, by the numbers of points. False
    /// also where the part has several vertices at one place, of which one stands for all in the soup.
    ///
    /// copied  the sum of `signedEdge` over the copied triangles, by places in the part
    /// made    points below the number of places are the part's
    bool closes(std::uint64_t copied, std::span<PieceTriangle const> made,
                StageProgress& progress) const;

private:
    std::uint32_t inPart(std::uint32_t point) const
    {
        return point < m_places.size() ? m_places[point] : m_partSize + point;
    }

    std::span<std::uint32_t const> m_places;
    std::uint32_t m_partSize;
};

/// The same by the coordinates of points, which takes a pass over all triangles.
///
/// copied  triangles in the mesh of a piece
/// places  by point of the triangles that were made
bool closesByPlaces(UMesh<float> const& copied, std::span<PieceTriangle const> made,
                    std::span<UPoint3<float> const> places, StageProgress& progress);
