// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/SideRays.h"

#include "host/services/boolean/SideNumbers.h"

#include <algorithm>
#include <cmath>

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

class RayNumbering
{
public:
    RayNumbering(OperandSoup const& soup, CurveNetwork const& network,
                 WindingSources const& sources, SideNumbers& numbers)
        : m_soup(soup), m_network(network), m_sources(sources), m_numbers(numbers)
    {}

    bool run()
    {
        numberFromVertices();
        if (!numberFromOwnRays())
            return false;
        numberFromKnown();
        return numberWhereOpen() && agreesWithKnown() && agreesWithRays() && layerByRays();
    }

private:
    /// The second operand's numbers from vertices of the first off its surface.
    void numberFromVertices()
    {
        SideGroups& groups = m_numbers.first.groups;
        for (std::uint32_t v = 0; v < groups.pointCount(); ++v) {
            m_numbers.poll();
            if (groups.isOnCurve(v))
                continue;
            std::uint32_t const group = groups.ofVertex(v);
            if (m_numbers.first.isOn(group) || m_numbers.aroundSecond.numberOf(group))
                continue;
            if (m_sources.isSecondSimple && isKnown(v))
                m_numbers.aroundSecond.set(group, m_sources.known[v]);
            else if (auto const number = m_sources.ofSecond(RayOrigin(m_soup.mesh.points[v])))
                m_numbers.aroundSecond.set(group, *number);
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
        SideGroups& groups = m_numbers.first.groups;
        for (std::uint32_t v = 0; v < groups.pointCount(); ++v, m_numbers.poll())
            if (!groups.isOnCurve(v) && isKnown(v) &&
                !m_numbers.aroundSecond.numberOf(groups.ofVertex(v)))
                m_numbers.aroundSecond.set(groups.ofVertex(v), m_sources.known[v]);
    }

    /// The second operand's own numbers. What hangs together is asked in several places, as a
    /// check. Returns false where two answers disagree.
    bool numberFromOwnRays()
    {
        if (m_sources.isSecondSimple) {
            for (std::uint32_t const group : m_numbers.openGroups([this](std::uint32_t g) {
                     return !m_numbers.aroundSecond.numberOf(m_numbers.nodeOf(Operand::second, g));
                 }))
                m_numbers.aroundSecond.set(m_numbers.nodeOf(Operand::second, group), 0);
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
        std::vector<Asked> asked(m_numbers.first.groups.size() + m_numbers.second.groups.size());
        std::size_t open = 0;
        for (std::uint32_t const group : m_numbers.openGroups([](std::uint32_t) { return true; })) {
            bool& isDone =
                asked[m_numbers.aroundSecond.placeOf(m_numbers.nodeOf(Operand::second, group)).root]
                    .isDone;
            open += isDone;
            isDone = false;
        }
        bool agrees = true;
        m_numbers.forPieces(m_numbers.second, [&](std::uint32_t group, Corners const& facet,
                                                  std::uint32_t triangle) {
            std::uint32_t const node = m_numbers.nodeOf(Operand::second, group);
            Asked& piece = asked[m_numbers.aroundSecond.placeOf(node).root];
            // A ray within a triangle tells nothing, and does not count.
            int const facing = piece.isDone ? 0 : facingOf(triangle);
            if (facing == 0)
                return true;
            m_numbers.poll();
            ++piece.questions;
            if (auto const number =
                    m_sources.ofSecond(pointIn(m_network.points(), facet, cornersOf(triangle)))) {
                ++piece.answers;
                agrees = m_numbers.aroundSecond.set(
                    node, facing > 0 ? *number : *number - m_numbers.second.changeOf(group)[1]);
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
            return boundsAnything(g) &&
                   !m_numbers.aroundSecond.numberOf(m_numbers.nodeOf(Operand::second, g));
        };
        if (m_numbers.openGroups(isOpen).empty())
            return true;
        if (m_numbers.isSecondClosed())
            return false;
        m_numbers.numberByFloors(Operand::second);
        return true;
    }

    /// What is folded flat bounds nothing, whatever is around it; all of it may be parallel to the rays.
    /// On a face of the first operand it may still stand for that.
    bool boundsAnything(std::uint32_t groupOfSecond)
    {
        auto const change = m_numbers.second.changeOf(groupOfSecond);
        return change[0] != 0 || change[1] != 0;
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

    bool agreesWithKnown()
    {
        SideGroups& groups = m_numbers.first.groups;
        for (std::uint32_t v = 0; v < groups.pointCount(); ++v) {
            m_numbers.poll();
            if (!isKnown(v) || groups.isOnCurve(v))
                continue;
            auto const number = m_numbers.aroundSecond.numberOf(groups.ofVertex(v));
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
        if (!m_numbers.isSecondClosed())
            return true;
        std::size_t left = 1000 + m_soup.triangleCount() / 64;
        return agreesWithRays(m_numbers.first, left) &&
               (m_sources.isSecondSimple || agreesWithRays(m_numbers.second, left));
    }

    bool agreesWithRays(LabelledGroups& labelled, std::size_t& left)
    {
        bool agrees = true;
        std::vector<bool> isAsked(labelled.groups.size(), false);
        std::size_t open = m_numbers.groupsWithTriangles(labelled).size();
        m_numbers.forPieces(labelled, [&](std::uint32_t group, Corners const& facet,
                                          std::uint32_t triangle) {
            int const facing = isAsked[group] ? 0 : facingOf(triangle);
            if (facing == 0)
                return true;
            if (auto const number =
                    m_sources.ofSecond(pointIn(m_network.points(), facet, cornersOf(triangle)))) {
                isAsked[group] = true;
                --open;
                agrees = m_numbers.aroundSecond.set(
                    m_numbers.nodeOf(labelled.operand, group),
                    facing > 0 ? *number : *number - labelled.changeOf(group)[1]);
            }
            return agrees && --left > 0 && open > 0;
        });
        return agrees;
    }

    /// The first operand's numbers by the rays that are there, and by new ones where these tell
    /// nothing.
    bool layerByRays()
    {
        SideGroups& groups = m_numbers.second.groups;
        for (auto const& [vertex, number] : m_sources.anchors)
            if (!groups.isOnCurve(vertex) &&
                !m_numbers.aroundFirst.set(groups.ofVertex(vertex), number))
                return false;
        if (m_sources.isFirstInDoubt &&
            !(ask(questionsAtVertices([](std::uint32_t) { return true; })) &&
              ask(questionsInFacets([](std::uint32_t) { return true; }))))
            return false;
        auto const isOpen = [this](std::uint32_t g) { return !m_numbers.aroundFirst.numberOf(g); };
        if (m_numbers.openGroups(isOpen).empty())
            return true;
        ask(questionsAtVertices(isOpen));
        ask(questionsInFacets(isOpen));
        if (!m_numbers.openGroups(isOpen).empty())
            ask(questionsInFacets(isOpen, mostFacets));
        auto const isMissed = [&](std::uint32_t g) { return isOpen(g) && boundsAnything(g); };
        if (m_numbers.openGroups(isMissed).empty())
            return true;
        if (m_sources.isFirstClosed)
            return false;
        m_numbers.numberByFloors(Operand::first);
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
        SideGroups& groups = m_numbers.second.groups;
        std::vector<Question> questions;
        std::vector<std::uint8_t> counts(groups.size(), 0);
        for (std::uint32_t v = 0; v < groups.pointCount(); ++v, m_numbers.poll())
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
        std::vector<std::uint8_t> counts(m_numbers.second.groups.size(), 0);
        m_numbers.forPieces(m_numbers.second, [&](std::uint32_t group, Corners const& facet,
                                                  std::uint32_t triangle) {
            int const change = m_numbers.second.changeOf(group)[0];
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
                agrees &= m_numbers.aroundFirst.set(questions[i].group,
                                                    *numbers[i] - questions[i].excess);
        return agrees;
    }

    OperandSoup const& m_soup;
    CurveNetwork const& m_network;
    WindingSources const& m_sources;
    SideNumbers& m_numbers;
};

}  // namespace

bool numberByRays(OperandSoup const& soup, CurveNetwork const& network,
                  WindingSources const& sources, SideNumbers& numbers)
{
    return RayNumbering(soup, network, sources, numbers).run();
}
