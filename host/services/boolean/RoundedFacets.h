// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/CurveNetwork.h"

#include <cstdint>
#include <unordered_map>
#include <unordered_set>
#include <vector>

/// The facets of the divided triangles with float coordinates. Points that round to the same floats
/// are one. A facet that rounding has turned over or laid flat is made to collapse: two corners
/// that are next to each other become one, or else its longest edge is led through its third
/// corner, in all facets at that edge. All of it keeps every closed surface of facets closed.
class RoundedFacets
{
public:
    struct Facet
    {
        /// By point numbers; of points that round to the same floats, one number stands for all.
        MeshArrays::Corners corners;
        std::uint32_t triangle;
        /// `whole` for one of a triangle that no curve divides.
        std::uint32_t region;
    };
    static constexpr std::uint32_t whole = 0xffffffff;

    RoundedFacets(OperandSoup const& soup, CurveNetwork const& network, StageProgress& progress);

    /// In the order of the triangles.
    std::vector<Facet> const& facets() const { return m_facets; }
    /// Whether a number stands for several points, or facets at it have been mended.
    bool isMended(std::uint32_t number) const { return m_isMended[number]; }
    /// Whether facets stand for a triangle.
    bool isDivided(std::uint32_t triangle) const;
    /// The number that stands for a point.
    std::uint32_t numberOf(std::uint32_t point) const { return m_numbers[point]; }

private:
    void numberPoints();
    void copyFacets();
    void mend();
    template <typename Number>
    std::vector<std::size_t> findTurned(std::size_t count, Number const& number) const;
    class Facing;
    class Surroundings;
    void collapse(std::size_t flat, Surroundings& surroundings);
    bool join(std::uint32_t a, std::uint32_t b, Surroundings& surroundings);
    void leadThrough(std::uint32_t from, std::uint32_t to, std::uint32_t middle,
                     Surroundings& surroundings);
    UPoint3<float> const& place(std::uint32_t point) const
    {
        return m_network.points().rounded(point);
    }
    void divideWholeTriangles(std::uint32_t a, std::uint32_t b, Surroundings& surroundings);
    bool isDivided(std::uint32_t a, std::uint32_t b) const;

    OperandSoup const& m_soup;
    CurveNetwork const& m_network;
    StageProgress& m_progress;
    std::vector<std::uint32_t> m_numbers;
    /// Points that were put in the places of others while facets were mended, and these.
    std::unordered_map<std::uint32_t, std::uint32_t> m_joined;
    std::vector<bool> m_isMended;
    std::vector<Facet> m_facets;
    /// Facets changed in a round of mending.
    std::vector<std::size_t> m_changed;
    /// Triangles that no curve divides, but rounding.
    std::unordered_set<std::uint32_t> m_dividedWholes;
};
