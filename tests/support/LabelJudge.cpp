// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/LabelJudge.h"

#include "host/services/boolean/SeparateFans.h"
#include "host/services/boolean/SideGroups.h"
#include "tests/support/OperandContacts.h"
#include "tests/support/WindingField.h"

#include <array>
#include <functional>
#include <sstream>

namespace {

std::function<void(int)> const nobody;

using Point = UPoint3<double>;
using Numbers = std::array<std::optional<int>, 2>;

/// The same surface as a boolean has its second operand: shells that touch in a point do not share it.
Soup withSeparateFans(Soup const& soup)
{
    StageProgress progress(nobody);
    MeshArrays mesh{soup.points, soup.triangles};
    separateFans(mesh, progress);
    return {mesh.points, mesh.triangles};
}

class LabelJudge
{
public:
    LabelJudge(Soup const& first, Soup const& second)
        : m_progress(nobody),
          m_contacts(first, withSeparateFans(second)),
          m_network(m_contacts.soup()),
          m_first(first),
          m_second(second)
    {}

    std::string faults()
    {
        if (!m_network.build(m_contacts.contacts(), m_progress) ||
            !labelSides(m_contacts.soup(), m_network, m_contacts.windings(), m_labels, m_progress))
            return "the sides contradict each other";
        look(Operand::first);
        look(Operand::second);
        return m_faults;
    }

private:
    void look(Operand operand)
    {
        OperandSoup const& soup = m_contacts.soup();
        SideGroups const groups(soup, m_network, operand, m_progress);
        bool const isFirst = operand == Operand::first;
        groups.forFacets([&](std::uint32_t region, auto const& facet, std::uint32_t) {
            if (isFirst)
                hold(facet, m_labels.ofFirst[region]);
            else
                hold(facet, m_labels.ofSecond[region]);
        });
        groups.forWholes([&](std::uint32_t triangle) {
            auto const& corners = soup.corners(triangle);
            if (isFirst) {
                std::int8_t const side = m_labels.ofFirstVertices[corners[0]];
                hold(corners, SideLabels::Sides{side, side});
            } else {
                hold(corners, m_labels.ofSecondVertices[corners[0] - soup.firstPointOfSecond]);
            }
        });
    }

    void hold(std::array<std::uint32_t, 3> const& facet, SideLabels::Sides const& told)
    {
        auto const isWrong = [](std::optional<int> number, std::int8_t side) {
            return number && (*number > 0) != (side > 0);
        };
        auto const [middle, front, behind] = around(facet);
        if (isWrong(front[1], told.front) || isWrong(behind[1], told.behind))
            tell("a facet of the first", middle);
    }

    void hold(std::array<std::uint32_t, 3> const& facet, SideLabels::SecondSides const& told)
    {
        auto const [middle, front, behind] = around(facet);
        if ((front[1] && (*front[1] > 0) != told.isSolidInFront) ||
            (behind[1] && (*behind[1] > 0) != told.isSolidBehind))
            tell("a facet of the second", middle);
        if (front[0] && *front[0] != told.layers)
            tell("the first's layers at a facet of the second", middle);
    }

    struct Around
    {
        Point middle;
        /// Winding numbers of both operands.
        Numbers front, behind;
    };

    Around around(std::array<std::uint32_t, 3> const& facet) const
    {
        constexpr double leastArea = 1e-3, distance = 1e-6;
        std::array<Point, 3> p;
        for (std::size_t k = 0; k < 3; ++k) {
            auto const place = m_network.points().estimate(facet[k]).place;
            p[k] = {place[0], place[1], place[2]};
        }
        auto const u = p[1] - p[0], v = p[2] - p[0];
        auto normal = u * v;
        Around found{p[0] + u * 0.31 + v * 0.36, {}, {}};
        if (normal.GetLength() < 2 * leastArea)
            return found;
        normal.Normalize();
        found.front = numbersAt(found.middle + normal * distance);
        found.behind = numbersAt(found.middle - normal * distance);
        return found;
    }

    Numbers numbersAt(Point const& p) const
    {
        return {m_first.windingAt(p), m_second.windingAt(p)};
    }

    void tell(char const* what, Point const& place)
    {
        if (!m_faults.empty())
            return;
        std::ostringstream text;
        text << what << " at " << place.X() << ", " << place.Y() << ", " << place.Z();
        m_faults = text.str();
    }

    StageProgress m_progress;
    OperandContacts m_contacts;
    CurveNetwork m_network;
    SideLabels m_labels;
    judge::WindingField m_first;
    judge::WindingField m_second;
    std::string m_faults;
};

}  // namespace

std::string faultsOfLabels(Soup const& first, Soup const& second)
{
    return LabelJudge(first, second).faults();
}
