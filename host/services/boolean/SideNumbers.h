// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/Polling.h"
#include "host/services/boolean/LabelledGroups.h"
#include "host/services/boolean/SideLabels.h"
#include "host/services/boolean/WindingPotentials.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <optional>
#include <span>
#include <vector>

/// Winding numbers in front of the groups of both operands: by how much they differ, as the curves
/// tell, and what they are, once one of those that hang together is known.
///
/// Those of the second operand are kept for the groups of both, those of the first for the second's
/// only: the first is not divided where it crosses itself.
class SideNumbers
{
public:
    using Corners = MeshArrays::Corners;

    SideNumbers(OperandSoup const& soup, CurveNetwork const& network, StageProgress& progress)
        : first(soup, network, Operand::first, progress),
          second(soup, network, Operand::second, progress),
          aroundFirst(second.groups.size()),
          aroundSecond(first.groups.size() + second.groups.size()),
          m_soup(soup),
          m_network(network),
          m_progress(progress)
    {}

    /// Enters what the curves tell. Returns false where they contradict each other, with a point of
    /// the curve in `labels` where that is how it came out.
    bool relate(SideLabels& labels);
    /// Pieces without a number of an operand get the least that what lies around their curves
    /// allows.
    void numberByFloors(Operand operand);
    /// What the numbers say of each region and vertex.
    void write(SideLabels& labels);

    /// Asks for a cancel now and then.
    void poll()
    {
        if (++m_steps % 1024 == 0)
            m_progress.add(0);
    }

    /// A group's place in `aroundSecond`.
    std::uint32_t nodeOf(Operand operand, std::uint32_t group) const
    {
        return operand == Operand::first ? group : first.groups.size() + group;
    }

    /// Calls `visit(group, facet, triangle)` for facets and triangles that no curve divides, as
    /// long as it returns true.
    template <typename Visit>
    void forPieces(LabelledGroups& labelled, Visit const& visit)
    {
        bool goesOn = true;
        labelled.groups.forFacets(
            [&](std::uint32_t region, Corners const& facet, std::uint32_t triangle) {
                poll();
                goesOn = goesOn && visit(labelled.groups.ofRegion(region), facet, triangle);
            });
        std::uint32_t const base =
            labelled.operand == Operand::first ? 0 : m_soup.firstPointOfSecond;
        labelled.groups.forWholes([&](std::uint32_t triangle) {
            poll();
            Corners const& corners = m_soup.corners(triangle);
            goesOn =
                goesOn && visit(labelled.groups.ofVertex(corners[0] - base), corners, triangle);
        });
    }

    /// The groups of an operand that have a triangle, in the order of `forPieces`.
    std::vector<std::uint32_t> const& groupsWithTriangles(LabelledGroups& labelled);

    /// Those of the second operand that `isOpen(group)` holds for.
    template <typename IsOpen>
    std::vector<std::uint32_t> openGroups(IsOpen const& isOpen)
    {
        std::vector<std::uint32_t> open;
        std::ranges::copy_if(groupsWithTriangles(second), std::back_inserter(open), isOpen);
        return open;
    }

    /// Whether the second operand's edges are run along as often one way as the other: random numbers
    /// of theirs add up to 0.
    bool isSecondClosed();

    LabelledGroups first;
    LabelledGroups second;
    /// The first operand's winding numbers in front of the second's groups.
    WindingPotentials aroundFirst;
    /// The second operand's winding numbers in front of the groups of both.
    WindingPotentials aroundSecond;

private:
    LabelledGroups& groupsOf(Operand operand) { return operand == Operand::first ? first : second; }

    bool relateSeeds(std::span<SideSeed const> seeds);
    bool tellLeads(std::span<SideSeed const> seeds);
    SideLabels::SecondSides secondSides(std::uint32_t group);

    OperandSoup const& m_soup;
    CurveNetwork const& m_network;
    StageProgress& m_progress;
    unsigned m_steps = 0;
    /// Of the seeds of one segment.
    std::vector<std::uint32_t> m_groups;
    std::vector<bool> m_isLead;
    /// Of each operand, once somebody asked.
    std::array<std::vector<std::uint32_t>, 2> m_groupsWithTriangles;
    std::optional<bool> m_isSecondClosed;
};
