// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/SideNumbers.h"

#include "host/services/boolean/FlatMap.h"
#include "host/services/boolean/PieceClosure.h"

std::vector<std::uint32_t> const& SideNumbers::groupsWithTriangles(LabelledGroups& labelled)
{
    auto& groups = m_groupsWithTriangles[std::size_t(labelled.operand)];
    if (!groups.empty())
        return groups;
    std::vector<bool> isSeen(labelled.groups.size(), false);
    std::uint32_t last = CurveNetwork::none;
    forPieces(labelled, [&](std::uint32_t group, Corners const&, std::uint32_t) {
        if (group != last && !isSeen[group]) {
            groups.push_back(group);
            isSeen[group] = true;
        }
        last = group;
        return true;
    });
    return groups;
}

bool SideNumbers::isSecondClosed()
{
    if (!m_isSecondClosed)
        m_isSecondClosed = areClosed(
            std::span(m_soup.mesh.triangles).subspan(m_soup.firstTriangleOfSecond), m_progress);
    return *m_isSecondClosed;
}

bool SideNumbers::relate(SideLabels& labels)
{
    auto const relateAt = [&](std::span<SideSeed const> seeds) {
        bool const agrees = relateSeeds(seeds);
        if (!agrees)
            labels.contradiction = seeds.front().from;
        return agrees;
    };
    return forSideSeeds(m_soup, m_network, relateAt, m_progress) && first.sortStacked(m_progress) &&
           second.sortStacked(m_progress);
}

/// Enters what the sheets around one segment tell.
bool SideNumbers::relateSeeds(std::span<SideSeed const> seeds)
{
    poll();
    m_groups.clear();
    for (SideSeed const& seed : seeds) {
        std::uint32_t const region = m_network.regionLeftOf(seed.triangle, seed.from, seed.to);
        if (region == CurveNetwork::none)
            return false;
        m_groups.push_back(groupsOf(m_soup.operandOf(seed.triangle)).groups.ofRegion(region));
    }
    if (!tellLeads(seeds))
        return false;
    std::uint32_t reference = CurveNetwork::none, referenceOfSecond = CurveNetwork::none;
    int number = 0, layers = 0;
    for (std::size_t i = 0; i < seeds.size(); ++i) {
        SideSeed const& seed = seeds[i];
        Operand const operand = m_soup.operandOf(seed.triangle);
        std::uint32_t const group = m_groups[i];
        groupsOf(operand).note(group, seed, m_isLead[i]);
        std::uint32_t const node = nodeOf(operand, group);
        if (reference == CurveNetwork::none) {
            reference = node;
            number = seed.front[1];
        } else if (!aroundSecond.relate(reference, node, seed.front[1] - number)) {
            return false;
        }
        if (operand == Operand::first)
            continue;
        if (referenceOfSecond == CurveNetwork::none) {
            referenceOfSecond = group;
            layers = seed.front[0];
        } else if (!aroundFirst.relate(referenceOfSecond, group, seed.front[0] - layers)) {
            return false;
        }
    }
    return true;
}

/// Of the second's groups that lie on each other at a segment the one with the smallest number
/// speaks for all. Returns false where one lies on itself.
bool SideNumbers::tellLeads(std::span<SideSeed const> seeds)
{
    m_isLead.assign(seeds.size(), true);
    for (std::size_t i = 0; i < seeds.size(); ++i)
        for (std::size_t k = 0; k < i; ++k) {
            if (seeds[i].stackNumber != seeds[k].stackNumber ||
                m_soup.operandOf(seeds[i].triangle) == Operand::first ||
                m_soup.operandOf(seeds[k].triangle) == Operand::first)
                continue;
            if (m_groups[i] == m_groups[k])
                return false;
            m_isLead[m_groups[i] < m_groups[k] ? k : i] = false;
        }
    return true;
}

void SideNumbers::numberByFloors(Operand operand)
{
    WindingPotentials& numbers = operand == Operand::first ? aroundFirst : aroundSecond;
    std::vector<std::pair<std::uint32_t, int>> lowest;
    forSideSeeds(
        m_soup, m_network,
        [&](std::span<SideSeed const> seeds) {
            for (SideSeed const& seed : seeds) {
                Operand const of = m_soup.operandOf(seed.triangle);
                if (of == Operand::first && operand == Operand::first)
                    continue;
                std::uint32_t const group = groupsOf(of).groups.ofRegion(
                    m_network.regionLeftOf(seed.triangle, seed.from, seed.to));
                std::uint32_t const member = operand == Operand::first ? group : nodeOf(of, group);
                auto const place = numbers.placeOf(member);
                if (!numbers.numberOf(member))
                    lowest.emplace_back(place.root,
                                        seed.front[std::size_t(operand)] - place.offset);
            }
            poll();
            return true;
        },
        m_progress);
    sortPolled(lowest, m_progress, std::less<>());
    for (std::size_t i = 0; i < lowest.size(); ++i)
        if (i + 1 == lowest.size() || lowest[i + 1].first != lowest[i].first)
            numbers.set(lowest[i].first, lowest[i].second);
}

void SideNumbers::write(SideLabels& labels)
{
    SideGroups& ofFirst = first.groups;
    labels.ofFirst.assign(ofFirst.regionCount(), {});
    ofFirst.forFacets([&](std::uint32_t region, Corners const&, std::uint32_t) {
        poll();
        std::uint32_t const group = ofFirst.ofRegion(region);
        int const number = aroundSecond.numberOf(group).value_or(0);
        labels.ofFirst[region] = {number > 0, number + first.changeOf(group)[1] > 0};
    });
    labels.ofFirstVertices.resize(ofFirst.pointCount());
    for (std::uint32_t v = 0; v < ofFirst.pointCount(); ++v, poll())
        labels.ofFirstVertices[v] =
            ofFirst.isOnCurve(v)
                ? SideLabels::unknown
                : std::int8_t(aroundSecond.numberOf(ofFirst.ofVertex(v)).value_or(0) > 0);
    SideGroups& ofSecond = second.groups;
    labels.ofSecond.assign(ofSecond.regionCount(), {});
    ofSecond.forFacets([&](std::uint32_t region, Corners const&, std::uint32_t) {
        poll();
        labels.ofSecond[region] = secondSides(ofSecond.ofRegion(region));
    });
    labels.ofSecondVertices.resize(ofSecond.pointCount());
    // Vertices that follow each other are mostly of one group.
    std::uint32_t last = CurveNetwork::none;
    SideLabels::SecondSides sides;
    for (std::uint32_t v = 0; v < ofSecond.pointCount(); ++v, poll()) {
        if (ofSecond.isOnCurve(v))
            continue;
        if (std::uint32_t const group = ofSecond.ofVertex(v); group != last) {
            last = group;
            sides = secondSides(group);
        }
        labels.ofSecondVertices[v] = sides;
    }
}

SideLabels::SecondSides SideNumbers::secondSides(std::uint32_t group)
{
    int const number = aroundSecond.numberOf(nodeOf(Operand::second, group)).value_or(0);
    return {aroundFirst.numberOf(group).value_or(0), number > 0,
            number + second.changeOf(group)[1] > 0, second.stackOf(group), second.isLead(group)};
}
