// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace Exact {

/// Triangles divided along all curves in which they meet, exactly. Where several lie in one
/// another, the facets of one of them stand for all.
class DividedTriangles
{
public:
    struct Facet
    {
        MeshArrays::Corners corners;
        /// The triangle of which it is a piece; it faces the same way.
        std::uint32_t triangle;
    };

    /// soup    without triangles that have no area and without two points at the same place;
    ///         borrowed
    /// throws  what the progress function throws
    DividedTriangles(MeshArrays const& soup, StageProgress& progress);
    ~DividedTriangles();

    std::vector<Facet> const& facets() const { return m_facets; }
    /// The points of the soup, and behind them those that were made, each coordinate rounded to the
    /// nearest float.
    std::vector<MeshArrays::Point> const& points() const { return m_points; }
    /// The middle of a facet, rounded to double.
    std::array<double, 3> middle(std::size_t facet) const;
    /// Which of some triangles a facet lies in.
    std::vector<std::uint32_t> trianglesUnder(std::size_t facet,
                                              std::vector<std::uint32_t> const& candidates) const;

private:
    struct Exactly;

    MeshArrays const& m_soup;
    std::unique_ptr<Exactly> m_exactly;
    std::vector<Facet> m_facets;
    std::vector<MeshArrays::Point> m_points;
};

}  // namespace Exact
