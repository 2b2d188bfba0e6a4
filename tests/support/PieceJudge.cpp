// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/PieceJudge.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <sstream>

namespace judge {
namespace {

using Point = UPoint3<double>;
using Vector = UVector3<double>;

std::string textOf(Point const& p)
{
    std::ostringstream text;
    text.precision(9);
    text << "(" << p.X() << ", " << p.Y() << ", " << p.Z() << ")";
    return text.str();
}

Point wide(UPoint3<float> const& p)
{
    return {p.X(), p.Y(), p.Z()};
}

double between(double low, double high, std::mt19937& random)
{
    return low + (high - low) * (double(random()) / 4294967296.0);
}

Point pointIn(UBox3<float> const& box, double margin, std::mt19937& random)
{
    Point p;
    for (int k = 0; k < 3; ++k)
        p[k] = between(box.min[k] - 3 * margin, box.max[k] + 3 * margin, random);
    return p;
}

/// A point of a triangle chosen at random, moved off it by a few margins on either side.
Point pointBeside(Soup const& soup, double margin, std::mt19937& random)
{
    auto const& t = soup.triangles[random() % soup.triangles.size()];
    Point const a = wide(soup.points[t[0]]);
    Vector const u = wide(soup.points[t[1]]) - a, v = wide(soup.points[t[2]]) - a;
    double s = between(0, 1, random), r = between(0, 1, random);
    if (s + r > 1) {
        s = 1 - s;
        r = 1 - r;
    }
    Vector normal = u * v;
    normal.Normalize();
    double const side = (random() % 2 ? 1 : -1) * between(1.5, 6, random);
    return a + u * s + v * r + normal * (side * margin);
}

bool doesWindTwice(WindingField const& field)
{
    std::mt19937 random(7);
    for (int i = 0; i < 500; ++i)
        if (field.windingAt(pointIn(field.bounds(), 0, random)).value_or(0) > 1)
            return true;
    return false;
}

class Judge
{
public:
    Judge(Source const& source, std::vector<Soup> const& pieces, Rule const& rule)
        : m_source(source), m_rule(rule), m_areClosedInOrder(source.isClosedInOrder())
    {
        for (Soup const& piece : pieces) {
            m_pieces.push_back(std::make_unique<WindingField>(piece));
            m_ordered.push_back(source.unpaired().empty()
                                    ? nullptr
                                    : std::make_unique<WindingField>(inOrder(piece)));
            m_areClosedInOrder =
                m_areClosedInOrder && (!m_ordered.back() || isClosedOf(*m_ordered.back()));
        }
    }

    PieceFaults faults(std::size_t samples)
    {
        judgeSurfaces();
        if (!m_faults.open.empty())
            return m_faults;
        std::mt19937 random(20011);
        for (std::size_t i = 0; i < samples && m_faults.wrong.empty(); ++i) {
            judgePoint(pointIn(m_source.field().bounds(), m_source.margin(), random));
            judgeBeside(m_source.soup(), random);
            for (auto const& piece : m_pieces)
                judgeBeside(piece->soup(), random);
        }
        return m_faults;
    }

private:
    void judgeSurfaces()
    {
        for (std::size_t i = 0; i < m_pieces.size(); ++i) {
            Soup const& piece = m_pieces[i]->soup();
            std::string const name = "piece " + std::to_string(i + 1) + ": ";
            std::size_t added = 0;
            EdgeEnds place;
            for (auto const& [edge, triangles] : unpairedEdgesOf(piece))
                if (!isOfSource(edge, triangles)) {
                    ++added;
                    place = edge;
                }
            auto const& [x, y, z] = place.first;
            if (added > 0)
                m_faults.open += name + std::to_string(added) + " unpaired edges, one at " +
                                 textOf({x, y, z}) + "; ";
            judgeFlaws(piece, name);
        }
    }

    /// Whether an unpaired edge is, or is a part of, one that the source has.
    bool isOfSource(EdgeEnds const& edge, std::size_t triangles) const
    {
        if (triangles > 2 && m_source.edges().crowdedUnpaired > 0)
            return true;
        auto const& unpaired = m_source.unpaired();
        return unpaired.contains(edge) ||
               std::any_of(unpaired.begin(), unpaired.end(), [&](auto const& of) {
                   return distance(edge.first, of.first) <= m_source.margin() &&
                          distance(edge.second, of.first) <= m_source.margin();
               });
    }

    static bool isClosedOf(WindingField const& field) { return edgesOf(field.soup()).isPaired(); }

    static double distance(std::array<float, 3> const& place, EdgeEnds const& line)
    {
        Point const p(place[0], place[1], place[2]);
        Point const a(line.first[0], line.first[1], line.first[2]);
        Point const b(line.second[0], line.second[1], line.second[2]);
        Vector const along = b - a;
        double const t = std::clamp(((p - a) | along) / (along | along), 0.0, 1.0);
        return (p - (a + along * t)).GetLength();
    }

    void judgeFlaws(Soup const& piece, std::string const& name)
    {
        SurfaceEdges const edges = edgesOf(piece);
        SurfaceEdges const& before = m_source.edges();
        std::string& text = m_faults.flawed;
        if (edges.flatTriangles > 0 && before.flatTriangles == 0)
            text += name + std::to_string(edges.flatTriangles) + " triangles of no area; ";
        if (m_source.hasLayers())
            return;
        if (edges.crowdedPaired > 0 && before.crowdedPaired == 0)
            text += name + std::to_string(edges.crowdedPaired) + " edges of four; ";
        if (Crossings const crossings = crossingsOf(piece); crossings.total() > 0)
            text += name + std::to_string(crossings.pairs) + " crossings and " +
                    std::to_string(crossings.overlaps) + " overlaps, one near " +
                    textOf(wide(crossings.place)) + "; ";
    }

    void judgeBeside(Soup const& soup, std::mt19937& random)
    {
        if (!soup.triangles.empty())
            judgePoint(pointBeside(soup, m_source.margin(), random));
    }

    bool isNearSurface(Point const& p) const
    {
        double const margin = m_source.margin();
        return m_source.field().isWithin(margin, p) ||
               std::any_of(m_pieces.begin(), m_pieces.end(),
                           [&](auto const& piece) { return piece->isWithin(margin, p); });
    }

    void judgePoint(Point const& p)
    {
        if (!m_faults.wrong.empty() || isNearSurface(p))
            return;
        if (m_areClosedInOrder)
            judgeClosed(p);
        else
            judgeOpen(p);
    }

    void judgeClosed(Point const& p)
    {
        auto const winding = m_source.ordered().windingAt(p);
        if (!winding)
            return;
        auto expected = m_rule.at(p, *winding);
        if (!expected)
            return;
        allowLayers(m_source.layersInDoubtAt(p), *expected);
        int sum = 0;
        for (std::size_t i = 0; i < expected->pieces.size(); ++i) {
            auto const found = i < m_pieces.size() ? pieceAt(i).windingAt(p) : std::optional(0);
            if (!found)
                return;
            sum += std::max(0, *found);
            Allowed const allowed = expected->pieces[i];
            if (*found < allowed.low || *found > allowed.high)
                m_faults.wrong += "piece " + std::to_string(i + 1) + " winds " +
                                  std::to_string(*found) + " times around " + textOf(p) +
                                  ", the source " + std::to_string(*winding) + " times; ";
        }
        if (sum > expected->most)
            m_faults.wrong += "the pieces together wind " + std::to_string(sum) + " times around " +
                              textOf(p) + ", the source " + std::to_string(*winding) + " times; ";
    }

    /// More of the layers that a piece may have anyway, in the same direction.
    static void allowLayers(int layers, Expected& expected)
    {
        for (Allowed& allowed : expected.pieces) {
            if (allowed.low < 0)
                allowed.low += std::min(layers, 0);
            if (allowed.high > 0)
                allowed.high += std::max(layers, 0);
        }
        if (expected.most > 0)
            expected.most += std::max(layers, 0);
    }

    void judgeOpen(Point const& p)
    {
        // Solid angles cost a pass over all triangles.
        if (!m_rule.isPartition || (m_rule.doesAddUpAt && !m_rule.doesAddUpAt(p)) ||
            ++m_solidAngles * m_source.soup().triangles.size() > 4'000'000)
            return;
        double const before = m_source.ordered().solidAngleAt(p), after = solidAngle(p, true);
        // What could not be put in order in the pieces may be there as it is in the part.
        if (!(std::abs(after - before) < 0.01) && !isWithoutWalls(before, after) &&
            !(std::abs(solidAngle(p, false) - m_source.field().solidAngleAt(p)) < 0.01))
            m_faults.wrong += "the pieces together wind " + std::to_string(after) +
                              " times around " + textOf(p) + ", the open source " +
                              std::to_string(before) + " times; ";
    }

    double solidAngle(Point const& p, bool isInOrder) const
    {
        double sum = 0;
        for (std::size_t i = 0; i < m_pieces.size(); ++i)
            sum += (isInOrder ? pieceAt(i) : *m_pieces[i]).solidAngleAt(p);
        return sum;
    }

    /// Whether pieces wind around a point as a part does whose walls bound nothing: such a wall takes
    /// up less than half of what can be seen from anywhere.
    bool isWithoutWalls(double before, double after) const
    {
        bool const hasOnlyWalls = m_source.edges().borders + m_source.edges().disagreeing == 0;
        return hasOnlyWalls && std::abs(after - std::round(after)) < 0.01 &&
               std::abs(after - before) < 0.5;
    }

    WindingField const& pieceAt(std::size_t i) const
    {
        return m_ordered[i] ? *m_ordered[i] : *m_pieces[i];
    }

    Source const& m_source;
    Rule const& m_rule;
    std::vector<std::unique_ptr<WindingField>> m_pieces;
    /// Null where the pieces are judged as they are.
    std::vector<std::unique_ptr<WindingField>> m_ordered;
    /// Source and pieces have an inside once they are put in order.
    bool m_areClosedInOrder;
    PieceFaults m_faults;
    std::size_t m_solidAngles = 0;
};

}  // namespace

Allowed solidAs(int winding)
{
    return {std::min(winding, 1), std::max(winding, winding == 0 ? 0 : 1)};
}

Source::Source(Soup soup)
    : m_field(std::move(soup)),
      m_edges(edgesOf(m_field.soup())),
      m_crossings(crossingsOf(m_field.soup())),
      m_unpaired(unpairedEdgesOf(m_field.soup())),
      m_ordered(m_unpaired.empty() ? nullptr
                                   : std::make_unique<WindingField>(inOrder(m_field.soup()))),
      m_surplus(ordered().soup().triangles.size() == m_field.soup().triangles.size()
                    ? nullptr
                    : std::make_unique<WindingField>(surplusOf(m_field.soup()))),
      m_isClosedInOrder(!m_ordered || edgesOf(m_ordered->soup()).isPaired()),
      m_hasLayers(m_crossings.total() > 0 || (m_unpaired.empty() && doesWindTwice(m_field)))
{}

int Source::layersInDoubtAt(UPoint3<double> const& p) const
{
    return m_surplus ? int(std::lround(m_surplus->solidAngleAt(p))) : 0;
}

double Source::diagonal() const
{
    UBox3<float> const box = m_field.bounds();
    return (wide(box.max) - wide(box.min)).GetLength();
}

double Source::margin() const
{
    UBox3<float> const box = m_field.bounds();
    double reach = 0;
    for (int k = 0; k < 3; ++k)
        reach = std::max({reach, std::abs(double(box.min[k])), std::abs(double(box.max[k]))});
    return std::max(2e-5 * diagonal(), 1e-6 * reach);
}

PieceFaults faultsOf(Source const& source, std::vector<Soup> const& pieces, Rule const& rule,
                     std::size_t samples)
{
    return Judge(source, pieces, rule).faults(samples);
}

}  // namespace judge
