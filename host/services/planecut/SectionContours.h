// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/exact/SectionTriangulation.h"
#include "host/services/planecut/SectionPoints.h"

#include <cstdint>
#include <vector>

/// Collects the directed edges along which the two halves of a part meet in the plane, and makes
/// contour segments of them: from p to q where the half above has a triangle that runs from p to q,
/// so that the material lies on the left, seen against the normal.
class SectionContours
{
public:
    /// A triangle that the plane cuts in two runs from p to q on its upper piece.
    void addCut(std::uint32_t p, std::uint32_t q) { add(p, q, Source::cut); }
    /// A whole triangle on the given side runs from p to q in the plane.
    void addEdge(CutSide side, std::uint32_t p, std::uint32_t q)
    {
        add(p, q, side == sideAbove ? Source::above : Source::below);
    }

    /// The contour segments, ordered by their points. Edges whose triangles all go to one side are
    /// none. Where the directions contradict each other but the contours close, the segments are
    /// undirected. What bounds nothing has a weight of 0.
    ///
    /// throws  Mell::Exception "The part is open where the plane meets it, near (x, y, z). Repair
    ///         the part and cut again." where a contour does not close
    std::vector<Exact::SectionSegment> segments(SectionPoints const& points);

private:
    enum class Source : std::uint8_t
    {
        cut,
        above,
        below,
    };

    struct DirectedEdge
    {
        std::uint32_t low;
        std::uint32_t high;
        Source source;
        bool isUpward;
    };

    void add(std::uint32_t from, std::uint32_t to, Source source);

    std::vector<DirectedEdge> m_edges;
};
