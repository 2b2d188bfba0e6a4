// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/exact/SectionTriangulation.h"
#include "host/services/planecut/SectionPoints.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

/// A place where contours do not close, or where their directions contradict each other.
struct SectionFault
{
    UPoint3<float> place;
    bool isOpen;
};

/// Whether the cut reaches what runs from one point to another.
using SectionReach = std::function<bool(UPoint3<float> const&, UPoint3<float> const&)>;

/// An edge between two section points.
struct SectionEdge
{
    std::uint32_t low;
    std::uint32_t high;
};

/// The contours of a section.
class Contours
{
public:
    /// Ordered by their points, one for each pair of points. What bounds nothing has a weight of 0.
    std::vector<Exact::SectionSegment> segments;
    std::optional<SectionFault> fault;
    /// Edges in the plane that bound nothing, though a half has triangles there.
    std::vector<SectionEdge> ridges;
    /// Contours with faults were left out, for the cut does not reach them.
    bool isPartial = false;

    /// Takes out what bounds nothing, and looks again for a fault.
    void dropSurplus(SectionPoints const& points);

private:
    friend class SectionContours;

    /// An edge in the plane whose triangles above and below do not agree.
    struct Dispute : SectionEdge
    {
        /// Not because there are more of them on one side, as where a wall ends.
        bool isOfTurned;
    };

    void findFault(SectionPoints const& points);
    void leaveOutUnreached(SectionPoints const& points, SectionReach const& isReached);

    std::vector<Dispute> m_disputes;
};

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

    /// The contours. Edges whose triangles all go to one side are none. Where contours hang
    /// together, have a fault and are not reached, they are left out.
    Contours contours(SectionPoints const& points, SectionReach const& isReached);

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

    struct EdgeUse;

    void add(std::uint32_t from, std::uint32_t to, Source source);

    std::vector<DirectedEdge> m_edges;
};
