// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/StageProgress.h"
#include "host/services/boolean/BooleanPieces.h"
#include "host/services/boolean/OperandSoup.h"
#include "host/services/boolean/PlaceKey.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <set>
#include <span>
#include <unordered_map>
#include <vector>

/// Takes a piece apart where it touches itself along an edge: where layers end thinner than floats
/// tell, points of both sides of a layer become one when they are rounded, and an edge has four
/// triangles.
///
/// Own derivation. The triangles at such an edge are taken in pairs that bound one wedge of solid.
/// One pair keeps the edge. Every other one is led through a new point that lies a unit or a few of
/// the last place within its wedge, off the middle of the edge: both of its triangles become two.
/// Where layers of solid lie in each other, wedges do so too: one that no other holds keeps the
/// edge, for led inward it would pass through those that it holds.
/// No point moves, so that nothing around changes, and every chain of triangles stays closed.
class TouchingEdges
{
public:
    /// Which edges are taken apart.
    enum class Which
    {
        all,
        /// Those that an operand has stay as they are.
        made,
    };

    /// piece   grows by two triangles for every edge that is led aside
    /// places  by point number; grows by the new points
    TouchingEdges(OperandSoup const& soup, std::vector<PieceTriangle>& piece,
                  std::vector<UPoint3<float>>& places, Which which = Which::made)
        : m_soup(soup), m_piece(piece), m_places(places), m_which(which)
    {}

    /// isAtCurve  by point number: where surfaces met or points became one. Only edges at the places of
    ///            such points are looked at: of one end alone where a vertex has layers on all sides.
    /// cost       some nanoseconds per triangle, and microseconds for each edge found
    void separate(std::vector<bool> const& isAtCurve, StageProgress& progress);

private:
    using Index = std::uint32_t;
    using Place = UPoint3<float>;

    /// A triangle at an edge. Points that have different numbers may have one place.
    struct Use
    {
        /// Of the places of both ends, the lower first.
        std::array<std::uint64_t, 2> hashes;
        /// The numbers of the ends in the same order.
        Index low, high;
        bool isUpward;
        std::size_t triangle;
        auto operator<=>(Use const&) const = default;
    };
    using Pair = std::array<Use, 2>;
    /// A pair, and how many others hold its wedge.
    struct Wedge
    {
        Pair pair;
        std::size_t depth;
    };

    std::vector<std::uint8_t> pointsAtPlaces(std::vector<bool> const& isAtCurve,
                                             StageProgress& progress) const;
    std::vector<Index> trianglesAt(std::vector<std::uint8_t> const& isMarked,
                                   StageProgress& progress) const;
    std::vector<Use> usesOfFullEdges(std::vector<std::uint8_t> const& mayTouch,
                                     StageProgress& progress) const;
    bool areOfOneEdge(std::span<Use const> uses) const;
    bool isOfOperand(Use const& use) const;
    void separate(std::span<Use> uses);
    void appendWedges(std::span<Use const> uses, std::vector<Wedge>& wedges) const;
    void sortForLeading(std::vector<Wedge>& wedges) const;
    double openingOf(Pair const& pair) const;
    bool leadAside(Pair const& pair, bool mayTurn);
    std::vector<Place> placesAside(Pair const& pair) const;
    bool isPossible(Use const& use, Place const& place) const;
    bool isTurned(Use const& use, Place const& place) const;
    void divide(Use const& use, Index point);
    std::size_t holderOf(Use const& use) const;
    Index apexOf(Use const& use) const;
    UVector3<double> normalOf(PieceTriangle const& triangle) const;

    OperandSoup const& m_soup;
    std::vector<PieceTriangle>& m_piece;
    std::vector<Place>& m_places;
    Which m_which;
    /// The triangles that were cut off others, by these.
    std::unordered_multimap<std::size_t, std::size_t> m_cutOff;
    /// Of new points.
    std::set<PlaceKey> m_taken;
};
