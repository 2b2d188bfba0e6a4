// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/BooleanJudge.h"

#include "tests/support/Crossings.h"
#include "tests/support/DistanceFromTriangle.h"
#include "tests/support/Validator.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <set>
#include <sstream>

namespace {

using judge::distanceFromTriangle;
using judge::offset;
using judge::Vector;

/// Three positions in an order that does not depend on the triangle's orientation.
using Place = std::array<std::array<float, 3>, 3>;

std::size_t filmsOf(Soup const& soup)
{
    std::set<Place> places;
    std::size_t films = 0;
    for (auto const& t : soup.triangles) {
        Place place;
        for (std::size_t k = 0; k < 3; ++k) {
            UPoint3<float> const& p = soup.points[t[k]];
            place[k] = {p.X() + 0.0f, p.Y() + 0.0f, p.Z() + 0.0f};
        }
        std::sort(place.begin(), place.end());
        films += !places.insert(place).second;
    }
    return films;
}

struct Named
{
    char const* name;
    Soup const& soup;
};

class Judge
{
public:
    Judge(Soup const& a, Soup const& b, BooleanPieces const& pieces, double unitsAllowed)
        : m_a(a),
          m_b(b),
          m_pieces(pieces),
          m_unitsAllowed(unitsAllowed),
          m_named{{"the union", pieces.united},
                  {"what is common", pieces.common},
                  {"the difference", pieces.difference},
                  {"the split's piece within", pieces.within},
                  {"the split's piece outside", pieces.outside}}
    {}

    std::string faults(std::size_t samples, std::mt19937& random)
    {
        judgeSurfaces();
        judgeVolumes();
        judgeAreas();
        if (m_faults.str().empty())
            judgePoints(samples, random);
        return m_faults.str();
    }

private:
    void judgeSurfaces()
    {
        for (auto const& [name, soup] : m_named) {
            std::string const faults = closedSolidFaults(soup);
            if (!faults.empty())
                m_faults << name << ": " << faults;
            if (std::size_t const films = filmsOf(soup))
                m_faults << name << ": " << films << " triangles on the corners of others; ";
            judge::Crossings const crossings = judge::crossingsOf(soup);
            if (crossings.total() > 0 &&
                (m_unitsAllowed == 0 || crossings.mostUnits > m_unitsAllowed))
                m_faults << name << ": " << crossings.pairs << " pairs of triangles that cross and "
                         << crossings.overlaps << " that overlap, the deepest by "
                         << crossings.mostUnits << " units near (" << crossings.place.X() << ", "
                         << crossings.place.Y() << ", " << crossings.place.Z() << "); ";
        }
    }

    void expectNear(char const* what, double value, double expected, double tolerance)
    {
        if (!(std::abs(value - expected) <= tolerance))
            m_faults << what << " is " << value << " and not " << expected << "; ";
    }

    void judgeVolumes()
    {
        double const a = volumeOf(m_a), b = volumeOf(m_b);
        double const common = volumeOf(m_pieces.common);
        double const tolerance = 1e-6 * (std::abs(a) + std::abs(b));
        expectNear("the difference's volume", volumeOf(m_pieces.difference), a - common, tolerance);
        expectNear("the union's volume", volumeOf(m_pieces.united), a + b - common, tolerance);
        expectNear("the volume within", volumeOf(m_pieces.within), common, tolerance);
        expectNear("the volume outside", volumeOf(m_pieces.outside), a - common, tolerance);
    }

    /// Every piece of either surface appears once in the union or in what is common, but for what
    /// coincides the other way round, which appears in neither.
    void judgeAreas()
    {
        double const both = areaOf(m_a) + areaOf(m_b);
        double const united = areaOf(m_pieces.united);
        double const common = areaOf(m_pieces.common);
        double const difference = areaOf(m_pieces.difference);
        double const tolerance = 1e-5 * both;
        if (united + common > both + tolerance)
            m_faults << "union and common part have more area than the operands; ";
        if (difference > both + tolerance)
            m_faults << "the difference has more area than the operands; ";
        expectNear("the area within", areaOf(m_pieces.within), common, tolerance);
        expectNear("the area outside", areaOf(m_pieces.outside), difference, tolerance);
    }

    void judgePoints(std::size_t samples, std::mt19937& random)
    {
        UBox3<float> box;
        for (Soup const* soup : {&m_a, &m_b})
            for (auto const& p : soup->points)
                box.Add(p);
        double const margin = 1e-4 * (box.max - box.min).GetLength();
        std::uniform_real_distribution<double> share(0, 1);
        for (std::size_t i = 0; i < samples; ++i) {
            double coordinates[3];
            for (int k = 0; k < 3; ++k)
                coordinates[k] = box.min[k] + share(random) * (double(box.max[k]) - box.min[k]);
            UPoint3<double> const p(coordinates[0], coordinates[1], coordinates[2]);
            if (distanceFrom(m_a, p) > margin && distanceFrom(m_b, p) > margin)
                judgePoint(p);
        }
    }

    void judgePoint(UPoint3<double> const& p)
    {
        bool const isInA = windingNumberAt(m_a, p) > 0;
        bool const isInB = windingNumberAt(m_b, p) > 0;
        bool const isExpected[] = {isInA || isInB, isInA && isInB, isInA && !isInB, isInA && isInB,
                                   isInA && !isInB};
        for (std::size_t i = 0; i < m_named.size(); ++i)
            if (int const winding = windingNumberAt(m_named[i].soup, p);
                winding != int(isExpected[i]))
                m_faults << m_named[i].name << " winds " << winding << " times around (" << p.X()
                         << ", " << p.Y() << ", " << p.Z() << ") and not " << isExpected[i]
                         << " times; ";
    }

    Soup const& m_a;
    Soup const& m_b;
    BooleanPieces const& m_pieces;
    double m_unitsAllowed;
    std::vector<Named> m_named;
    std::ostringstream m_faults;
};

}  // namespace

int windingNumberAt(Soup const& soup, UPoint3<double> const& point)
{
    double sum = 0;
    for (auto const& t : soup.triangles) {
        Vector const a = offset(point, soup.points[t[0]]);
        Vector const b = offset(point, soup.points[t[1]]);
        Vector const c = offset(point, soup.points[t[2]]);
        double const la = a.GetLength(), lb = b.GetLength(), lc = c.GetLength();
        sum +=
            2 * std::atan2(a | (b * c), la * lb * lc + (a | b) * lc + (b | c) * la + (c | a) * lb);
    }
    return int(std::lround(sum / (4 * std::numbers::pi)));
}

double distanceFrom(Soup const& soup, UPoint3<double> const& point)
{
    double nearest = std::numeric_limits<double>::max();
    for (auto const& t : soup.triangles)
        nearest = std::min(nearest, distanceFromTriangle(offset(point, soup.points[t[0]]),
                                                         offset(point, soup.points[t[1]]),
                                                         offset(point, soup.points[t[2]])));
    return nearest;
}

std::string faultsOfPieces(Soup const& a, Soup const& b, BooleanPieces const& pieces,
                           std::size_t samples, std::mt19937& random, double unitsAllowed)
{
    return Judge(a, b, pieces, unitsAllowed).faults(samples, random);
}
