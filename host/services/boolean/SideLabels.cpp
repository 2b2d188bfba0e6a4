// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/SideLabels.h"

#include "host/services/Polling.h"
#include "host/services/boolean/FlatMap.h"
#include "host/services/boolean/LabelledGroups.h"
#include "host/services/boolean/WindingPotentials.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace {

using Corners = MeshArrays::Corners;

/// A point well inside a facet of a triangle, away from regular grids.
RayOrigin pointIn(CurvePoints const& points, Corners const& facet,
                  RayOrigin::Triangle const& triangle)
{
    constexpr double shares[3] = {0.36, 0.31, 0.33};
    std::array<double, 3> place{};
    double error = 0, size = 0;
    for (std::size_t k = 0; k < 3; ++k) {
        CurvePoints::Estimate const e = points.estimate(facet[k]);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            place[axis] += shares[k] * e.place[axis];
            size = std::max(size, std::abs(e.place[axis]));
        }
        error = std::max(error, e.error);
    }
    return {place, error + 0x1p-50 * size, triangle};
}

class Labelling
{
public:
    Labelling(OperandSoup const& soup, CurveNetwork const& network, WindingSources const& sources,
              StageProgress& progress)
        : m_soup(soup),
          m_network(network),
          m_sources(sources),
          m_progress(progress),
          m_first(soup, network, Operand::first, progress),
          m_second(soup, network, Operand::second, progress),
          m_aroundFirst(m_second.groups.size()),
          m_aroundSecond(m_first.groups.size() + m_second.groups.size())
    {}

    bool run(SideLabels& labels)
    {
        auto const relate = [&](std::span<SideSeed const> seeds) {
            bool const agrees = relateSeeds(seeds);
            if (!agrees)
                labels.contradiction = seeds.front().from;
            return agrees;
        };
        if (!forSideSeeds(m_soup, m_network, relate, m_progress) ||
            !m_first.sortStacked(m_progress) || !m_second.sortStacked(m_progress))
            return false;
        numberFromVertices();
        if (!numberFromOwnRays())
            return false;
        numberFromKnown();
        if (!numberWhereOpen() || !agreesWithKnown() || !agreesWithRays() || !layerByRays())
            return false;
        write(labels);
        return true;
    }

private:
    /// Asks for a cancel now and then.
    void poll()
    {
        if (++m_steps % 1024 == 0)
            m_progress.add(0);
    }

    std::uint32_t nodeOf(Operand operand, std::uint32_t group) const
    {
        return operand == Operand::first ? group : m_first.groups.size() + group;
    }

    LabelledGroups& groupsOf(Operand operand)
    {
        return operand == Operand::first ? m_first : m_second;
    }

    /// Winding numbers of the second operand are kept in front of the groups of both, those of the
    /// first in front of the second's only: the first is not divided where it crosses itself.
    bool relateSeeds(std::span<SideSeed const> seeds)
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
            } else if (!m_aroundSecond.relate(reference, node, seed.front[1] - number)) {
                return false;
            }
            if (operand == Operand::first)
                continue;
            if (referenceOfSecond == CurveNetwork::none) {
                referenceOfSecond = group;
                layers = seed.front[0];
            } else if (!m_aroundFirst.relate(referenceOfSecond, group, seed.front[0] - layers)) {
                return false;
            }
        }
        return true;
    }

    /// Of the second's groups that lie on each other at a segment the one with the smallest number
    /// speaks for all. Returns false where one lies on itself.
    bool tellLeads(std::span<SideSeed const> seeds)
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

    /// The second operand's numbers from vertices of the first off its surface.
    void numberFromVertices()
    {
        SideGroups& groups = m_first.groups;
        for (std::uint32_t v = 0; v < groups.pointCount(); ++v) {
            poll();
            if (groups.isOnCurve(v))
                continue;
            std::uint32_t const group = groups.ofVertex(v);
            if (m_first.isOn(group) || m_aroundSecond.numberOf(group))
                continue;
            if (m_sources.isSecondSimple && isKnown(v))
                m_aroundSecond.set(group, m_sources.known[v]);
            else if (auto const number = m_sources.ofSecond(RayOrigin(m_soup.mesh.points[v])))
                m_aroundSecond.set(group, *number);
        }
    }

    bool isKnown(std::uint32_t vertex) const
    {
        return !m_sources.known.empty() && m_sources.known[vertex] != SideLabels::unknown;
    }

    /// Where the second operand is open, so that rays tell nothing, what is known of the cells
    /// around it has to do.
    void numberFromKnown()
    {
        SideGroups& groups = m_first.groups;
        for (std::uint32_t v = 0; v < groups.pointCount(); ++v, poll())
            if (!groups.isOnCurve(v) && isKnown(v) && !m_aroundSecond.numberOf(groups.ofVertex(v)))
                m_aroundSecond.set(groups.ofVertex(v), m_sources.known[v]);
    }

    /// The second operand's own numbers. What hangs together is asked in several places, as a
    /// check. Returns false where two answers disagree.
    bool numberFromOwnRays()
    {
        if (m_sources.isSecondSimple) {
            for (std::uint32_t const group : openGroups([this](std::uint32_t g) {
                     return !m_aroundSecond.numberOf(nodeOf(Operand::second, g));
                 }))
                m_aroundSecond.set(nodeOf(Operand::second, group), 0);
            return true;
        }
        struct Asked
        {
            std::int16_t questions = 0;
            std::int8_t answers = 0;
            /// Whether there is nothing more to ask.
            bool isDone = true;
        };
        constexpr int mostAnswers = 3, enoughQuestions = 64, mostQuestions = 4096;
        std::vector<Asked> asked(m_first.groups.size() + m_second.groups.size());
        std::size_t open = 0;
        for (std::uint32_t const group : openGroups([](std::uint32_t) { return true; })) {
            bool& isDone =
                asked[m_aroundSecond.placeOf(nodeOf(Operand::second, group)).root].isDone;
            open += isDone;
            isDone = false;
        }
        bool agrees = true;
        forPieces(m_second, [&](std::uint32_t group, Corners const& facet, std::uint32_t triangle) {
            std::uint32_t const node = nodeOf(Operand::second, group);
            Asked& piece = asked[m_aroundSecond.placeOf(node).root];
            // A ray within a triangle tells nothing, and does not count.
            int const facing = piece.isDone ? 0 : facingOf(triangle);
            if (facing == 0)
                return true;
            poll();
            ++piece.questions;
            if (auto const number =
                    m_sources.ofSecond(pointIn(m_network.points(), facet, cornersOf(triangle)))) {
                ++piece.answers;
                agrees = m_aroundSecond.set(
                    node, facing > 0 ? *number : *number - m_second.changeOf(group)[1]);
            }
            piece.isDone = piece.answers == mostAnswers ||
                           piece.questions >= (piece.answers > 0 ? enoughQuestions : mostQuestions);
            open -= piece.isDone;
            return agrees && open > 0;
        });
        return agrees;
    }

    /// Where the second operand is open, so that rays tell nothing, its numbers are the least that
    /// the curves allow. Returns false where it is closed and none of a piece's facets had an answer.
    bool numberWhereOpen()
    {
        auto const isOpen = [this](std::uint32_t g) {
            return boundsAnything(g) && !m_aroundSecond.numberOf(nodeOf(Operand::second, g));
        };
        if (openGroups(isOpen).empty())
            return true;
        if (isSecondClosed())
            return false;
        numberByFloors(Operand::second);
        return true;
    }

    /// What is folded flat bounds nothing, whatever is around it; all of it may be parallel to the rays.
    /// On a face of the first operand it may still stand for that.
    bool boundsAnything(std::uint32_t groupOfSecond)
    {
        auto const change = m_second.changeOf(groupOfSecond);
        return change[0] != 0 || change[1] != 0;
    }

    /// Whether the second operand's edges are run along as often one way as the other: random numbers
    /// of theirs add up to 0.
    bool isSecondClosed()
    {
        std::uint64_t sum = 0;
        for (std::uint32_t t = m_soup.firstTriangleOfSecond; t < m_soup.triangleCount(); ++t) {
            poll();
            Corners const& c = m_soup.corners(t);
            for (std::size_t k = 0; k < 3; ++k) {
                auto const [low, high] = std::minmax(c[k], c[(k + 1) % 3]);
                std::uint64_t const number = mixBits(std::uint64_t(low) << 32 | high);
                sum += c[k] == low ? number : -number;
            }
        }
        return sum == 0;
    }

    RayOrigin::Triangle cornersOf(std::uint32_t triangle) const
    {
        return {m_soup.mesh.point(triangle, 0), m_soup.mesh.point(triangle, 1),
                m_soup.mesh.point(triangle, 2)};
    }

    /// 1 if a triangle's front is on its side of growing x, -1 if its back is.
    int facingOf(std::uint32_t triangle) const
    {
        auto const [a, b, c] = cornersOf(triangle);
        return ExactSigns::orient2d(a, b, c, 0);
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

    /// The groups of the second operand that have a triangle and that `isOpen(group)` holds for.
    template <typename IsOpen>
    std::vector<std::uint32_t> openGroups(IsOpen const& isOpen)
    {
        std::vector<bool> isSeen(m_second.groups.size(), false);
        std::vector<std::uint32_t> open;
        forPieces(m_second, [&](std::uint32_t group, Corners const&, std::uint32_t) {
            if (!isSeen[group] && isOpen(group))
                open.push_back(group);
            isSeen[group] = true;
            return true;
        });
        return open;
    }

    bool agreesWithKnown()
    {
        SideGroups& groups = m_first.groups;
        for (std::uint32_t v = 0; v < groups.pointCount(); ++v) {
            poll();
            if (!isKnown(v) || groups.isOnCurve(v))
                continue;
            auto const number = m_aroundSecond.numberOf(groups.ofVertex(v));
            if (number && (*number > 0) != (m_sources.known[v] > 0))
                return false;
        }
        return true;
    }

    /// How many facets of a piece of surface are asked for a number before it is given up.
    static constexpr std::uint8_t mostFacets = 64;

    /// Whether rays through the second operand from some facet of each group agree, as many as take
    /// little of the time. One that the curves tell wrongly between two groups contradicts nothing
    /// where no other curve leads around.
    bool agreesWithRays()
    {
        if (!isSecondClosed())
            return true;
        std::size_t left = 1000 + m_soup.triangleCount() / 64;
        return agreesWithRays(m_first, left) &&
               (m_sources.isSecondSimple || agreesWithRays(m_second, left));
    }

    bool agreesWithRays(LabelledGroups& labelled, std::size_t& left)
    {
        bool agrees = true;
        std::vector<bool> isAsked(labelled.groups.size(), false);
        forPieces(labelled, [&](std::uint32_t group, Corners const& facet, std::uint32_t triangle) {
            int const facing = isAsked[group] ? 0 : facingOf(triangle);
            if (facing == 0)
                return true;
            if (auto const number =
                    m_sources.ofSecond(pointIn(m_network.points(), facet, cornersOf(triangle)))) {
                isAsked[group] = true;
                agrees = m_aroundSecond.set(
                    nodeOf(labelled.operand, group),
                    facing > 0 ? *number : *number - labelled.changeOf(group)[1]);
            }
            return agrees && --left > 0;
        });
        return agrees;
    }

    /// The first operand's numbers by the rays that are there, and by new ones where these tell
    /// nothing.
    bool layerByRays()
    {
        SideGroups& groups = m_second.groups;
        for (auto const& [vertex, number] : m_sources.anchors)
            if (!groups.isOnCurve(vertex) && !m_aroundFirst.set(groups.ofVertex(vertex), number))
                return false;
        if (m_sources.isFirstInDoubt &&
            !(ask(questionsAtVertices([](std::uint32_t) { return true; })) &&
              ask(questionsInFacets([](std::uint32_t) { return true; }))))
            return false;
        auto const isOpen = [this](std::uint32_t g) { return !m_aroundFirst.numberOf(g); };
        if (openGroups(isOpen).empty())
            return true;
        ask(questionsAtVertices(isOpen));
        ask(questionsInFacets(isOpen));
        if (!openGroups(isOpen).empty())
            ask(questionsInFacets(isOpen, mostFacets));
        auto const isMissed = [&](std::uint32_t g) { return isOpen(g) && boundsAnything(g); };
        if (openGroups(isMissed).empty())
            return true;
        if (m_sources.isFirstClosed)
            return false;
        numberByFloors(Operand::first);
        return true;
    }

    /// What is to be asked for a group, and by how much the answer is more than the number in front
    /// of it.
    struct Question
    {
        std::uint32_t group;
        int excess;
        RayOrigin origin;
    };

    /// Questions for groups of the second operand that `isAsked(group)` holds for, one each.
    template <typename IsAsked>
    std::vector<Question> questionsAtVertices(IsAsked const& isAsked)
    {
        SideGroups& groups = m_second.groups;
        std::vector<Question> questions;
        std::vector<std::uint8_t> counts(groups.size(), 0);
        for (std::uint32_t v = 0; v < groups.pointCount(); ++v, poll())
            if (!groups.isOnCurve(v) && isListed(counts, groups.ofVertex(v), isAsked))
                questions.push_back(
                    {groups.ofVertex(v), 0, RayOrigin(m_soup.mesh.points[groups.globalOf(v)])});
        return questions;
    }

    /// most  for each group
    template <typename IsAsked>
    std::vector<Question> questionsInFacets(IsAsked const& isAsked, std::uint8_t most = 1)
    {
        std::vector<Question> questions;
        std::vector<std::uint8_t> counts(m_second.groups.size(), 0);
        forPieces(m_second, [&](std::uint32_t group, Corners const& facet, std::uint32_t triangle) {
            int const change = m_second.changeOf(group)[0];
            int const facing = facingOf(triangle);
            if ((facing != 0 || change == 0) && isListed(counts, group, isAsked, most))
                questions.push_back({group, facing < 0 ? change : 0,
                                     pointIn(m_network.points(), facet, cornersOf(triangle))});
            return true;
        });
        return questions;
    }

    template <typename IsAsked>
    static bool isListed(std::vector<std::uint8_t>& counts, std::uint32_t group,
                         IsAsked const& isAsked, std::uint8_t most = 1)
    {
        if (counts[group] == most || !isAsked(group))
            return false;
        ++counts[group];
        return true;
    }

    /// Returns false where an answer contradicts what is known.
    bool ask(std::vector<Question> const& questions)
    {
        if (questions.empty())
            return true;
        std::vector<RayOrigin> origins;
        origins.reserve(questions.size());
        for (Question const& question : questions)
            origins.push_back(question.origin);
        WindingSources::Numbers const numbers = m_sources.ofFirst(origins);
        bool agrees = true;
        for (std::size_t i = 0; i < questions.size(); ++i)
            if (numbers[i])
                agrees &= m_aroundFirst.set(questions[i].group, *numbers[i] - questions[i].excess);
        return agrees;
    }

    /// Pieces without a number of an operand get the least that what lies around their curves
    /// allows.
    void numberByFloors(Operand operand)
    {
        WindingPotentials& numbers = operand == Operand::first ? m_aroundFirst : m_aroundSecond;
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
                    std::uint32_t const member =
                        operand == Operand::first ? group : nodeOf(of, group);
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

    void write(SideLabels& labels)
    {
        SideGroups& first = m_first.groups;
        labels.ofFirst.assign(first.regionCount(), {});
        first.forFacets([&](std::uint32_t region, Corners const&, std::uint32_t) {
            poll();
            std::uint32_t const group = first.ofRegion(region);
            int const number = m_aroundSecond.numberOf(group).value_or(0);
            labels.ofFirst[region] = {number > 0, number + m_first.changeOf(group)[1] > 0};
        });
        labels.ofFirstVertices.resize(first.pointCount());
        for (std::uint32_t v = 0; v < first.pointCount(); ++v, poll())
            labels.ofFirstVertices[v] =
                first.isOnCurve(v)
                    ? SideLabels::unknown
                    : std::int8_t(m_aroundSecond.numberOf(first.ofVertex(v)).value_or(0) > 0);
        SideGroups& second = m_second.groups;
        labels.ofSecond.assign(second.regionCount(), {});
        second.forFacets([&](std::uint32_t region, Corners const&, std::uint32_t) {
            poll();
            labels.ofSecond[region] = secondSides(second.ofRegion(region));
        });
        labels.ofSecondVertices.resize(second.pointCount());
        for (std::uint32_t v = 0; v < second.pointCount(); ++v, poll())
            if (!second.isOnCurve(v))
                labels.ofSecondVertices[v] = secondSides(second.ofVertex(v));
    }

    SideLabels::SecondSides secondSides(std::uint32_t group)
    {
        int const number = m_aroundSecond.numberOf(nodeOf(Operand::second, group)).value_or(0);
        return {m_aroundFirst.numberOf(group).value_or(0), number > 0,
                number + m_second.changeOf(group)[1] > 0, m_second.stackOf(group),
                m_second.isLead(group)};
    }

    OperandSoup const& m_soup;
    CurveNetwork const& m_network;
    WindingSources const& m_sources;
    StageProgress& m_progress;
    unsigned m_steps = 0;
    LabelledGroups m_first;
    LabelledGroups m_second;
    /// Of the seeds of one segment.
    std::vector<std::uint32_t> m_groups;
    std::vector<bool> m_isLead;
    /// The first operand's winding numbers in front of the second's groups.
    WindingPotentials m_aroundFirst;
    /// The second operand's winding numbers in front of the groups of both.
    WindingPotentials m_aroundSecond;
};

}  // namespace

bool labelSides(OperandSoup const& soup, CurveNetwork const& network, WindingSources const& sources,
                SideLabels& labels, StageProgress& progress)
{
    return Labelling(soup, network, sources, progress).run(labels);
}
