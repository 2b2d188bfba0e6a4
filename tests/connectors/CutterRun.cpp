// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/connectors/CutterRun.h"

#include "platform/services/Intersect.h"
#include "tests/support/WindingField.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <optional>
#include <set>
#include <sstream>

namespace {

/// Crossings of the line parallel to one axis through (u, v) in the other two.
std::vector<float> crossings(Soup const& soup, int axis, double u, double v)
{
    int const first = (axis + 1) % 3, second = (axis + 2) % 3;
    std::vector<float> result;
    for (auto const& t : soup.triangles) {
        double weight[3], sum = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            auto const& p = soup.points[t[(i + 1) % 3]];
            auto const& q = soup.points[t[(i + 2) % 3]];
            weight[i] = (p[first] - u) * (q[second] - v) - (q[first] - u) * (p[second] - v);
            sum += weight[i];
        }
        bool const isInside = std::all_of(weight, weight + 3, [&](double w) { return w > 0; }) ||
                              std::all_of(weight, weight + 3, [&](double w) { return w < 0; });
        if (!isInside)
            continue;
        double place = 0;
        for (std::size_t i = 0; i < 3; ++i)
            place += weight[i] / sum * soup.points[t[i]][axis];
        result.push_back(float(place));
    }
    std::sort(result.begin(), result.end());
    return result;
}

Soup combined(Soup const& a, Soup const& b, Intersect::BooleanType type)
{
    MeshKernel result;
    std::vector<MeshKernel*> out{&result};
    Intersect::boolean(kernelOf(a).get(), kernelOf(b).get(), out, type, {}, 1);
    return soupOf(result);
}

/// Points beside the middle of each of at most `most` of some triangles, on both sides.
std::vector<UPoint3<double>> pointsBeside(Soup const& soup,
                                          std::vector<std::size_t> const& triangles,
                                          std::size_t most, double height)
{
    std::vector<UPoint3<double>> points;
    std::size_t const step = std::max<std::size_t>(1, triangles.size() / most);
    for (std::size_t i = 0; i < triangles.size(); i += step) {
        UPoint3<double> p[3];
        for (std::size_t k = 0; k < 3; ++k) {
            auto const& corner = soup.points[soup.triangles[triangles[i]][k]];
            p[k] = {corner.X(), corner.Y(), corner.Z()};
        }
        UVector3<double> normal = (p[1] - p[0]) * (p[2] - p[0]);
        normal.Normalize();
        // Not in a plane of symmetry, where rays run along edges.
        auto const middle = p[0] + (p[1] - p[0]) * 0.31 + (p[2] - p[0]) * 0.37;
        points.push_back(middle + normal * height);
        points.push_back(middle - normal * height);
    }
    return points;
}

using Place = std::array<float, 3>;

Place placeOf(UPoint3<float> const& p)
{
    return {p.X(), p.Y(), p.Z()};
}

/// The triangles of a piece, and those of them that belong to connectors: they are not level and
/// have no corner in common with the part, as the part's own walls have.
struct PieceTriangles
{
    PieceTriangles(Soup const& piece, std::set<Place> const& partPlaces,
                   UVector3<double> const& normal)
    {
        for (std::size_t i = 0; i < piece.triangles.size(); ++i) {
            all.push_back(i);
            auto const& t = piece.triangles[i];
            bool const isOfPart = std::any_of(t.begin(), t.end(), [&](std::uint32_t v) {
                return partPlaces.contains(placeOf(piece.points[v]));
            });
            auto const along = [&](std::size_t k) {
                auto const& p = piece.points[t[k]];
                return UVector3<double>(p.X(), p.Y(), p.Z()) | normal;
            };
            bool const isLevel = std::max({along(0), along(1), along(2)}) -
                                     std::min({along(0), along(1), along(2)}) <
                                 1e-3;
            if (!isOfPart && !isLevel)
                ofConnectors.push_back(i);
        }
    }

    std::vector<std::size_t> all;
    std::vector<std::size_t> ofConnectors;
};

/// How often solids wind around a point; empty where that is too near to one of them to tell.
std::vector<int> windingsAt(UPoint3<double> const& p, double margin,
                            std::initializer_list<judge::WindingField const*> fields)
{
    std::vector<int> windings;
    for (judge::WindingField const* const field : fields) {
        auto const winding = field->isWithin(margin, p) ? std::nullopt : field->windingAt(p);
        if (!winding)
            return {};
        windings.push_back(*winding);
    }
    return windings;
}

}  // namespace

std::vector<float> crossingsAlongZ(Soup const& soup, float x, float y)
{
    return crossings(soup, 2, x, y);
}

std::vector<float> crossingsAlongX(Soup const& soup, float y, float z)
{
    return crossings(soup, 0, y, z);
}

std::vector<float> crossingsAlongY(Soup const& soup, float x, float z)
{
    return crossings(soup, 1, z, x);
}

double commonVolume(Soup const& a, Soup const& b)
{
    return volumeOf(combined(a, b, Intersect::BOOLEAN_INTERSECT));
}

void expectFit(Soup const& part, Pieces const& pieces, UVector3<float> const& gap)
{
    EXPECT_EQ(closedSolidFaults(pieces.lower), "");
    EXPECT_EQ(closedSolidFaults(pieces.upper), "");
    double const whole = volumeOf(part);
    EXPECT_LE(commonVolume(pieces.lower, pieces.upper), 1e-7 * whole);
    Soup together = pieces.upper;
    for (auto& p : together.points)
        p -= gap;
    // Faces that meet overlap by rounding.
    EXPECT_LE(commonVolume(pieces.lower, together), 1e-6 * whole);
    auto const less = [](Soup const& a, Soup const& b) {
        return combined(a, b, Intersect::BOOLEAN_SUBTRACT);
    };
    double const between = volumeOf(less(less(part, pieces.lower), pieces.upper));
    EXPECT_NEAR(volumeOf(pieces.lower) + volumeOf(pieces.upper) + between, whole, 1e-5 * whole);
    EXPECT_LT(between, 0.1 * whole);
}

std::string fitFaultsAtPoints(Soup const& part, Pieces const& pieces, UVector3<float> const& gap)
{
    std::ostringstream faults;
    faults << closedSolidFaults(pieces.lower) << closedSolidFaults(pieces.upper);
    double const whole = volumeOf(part);
    double const both = volumeOf(pieces.lower) + volumeOf(pieces.upper);
    if (!(both <= whole * (1 + 1e-6) && both >= 0.8 * whole))
        faults << "the pieces have " << both << " of the part's " << whole << "; ";
    Soup together = pieces.upper;
    for (auto& p : together.points)
        p -= gap;
    judge::WindingField const source(part), lower(pieces.lower), upper(pieces.upper), put(together);
    std::set<Place> partPlaces;
    for (auto const& p : part.points)
        partPlaces.insert(placeOf(p));
    UVector3<double> normal(gap.X(), gap.Y(), gap.Z());
    normal.Normalize();
    constexpr double height = 5e-3, margin = 1e-3;
    constexpr std::size_t most = 1500;
    std::size_t told = 0;
    for (Soup const* const soup :
         {&pieces.lower, &pieces.upper, static_cast<Soup const*>(&together)}) {
        PieceTriangles const triangles(*soup, partPlaces, normal);
        auto points = pointsBeside(*soup, triangles.all, most, height);
        auto const ofConnectors = pointsBeside(*soup, triangles.ofConnectors, most, height);
        points.insert(points.end(), ofConnectors.begin(), ofConnectors.end());
        for (auto const& p : points) {
            std::vector<int> const w = windingsAt(p, margin, {&source, &lower, &upper, &put});
            if (w.empty())
                continue;
            ++told;
            if (w[1] + w[2] > w[0])
                faults << "solid outside the part or in both pieces";
            else if (w[1] + w[3] > 1)
                faults << "the pieces meet when put together";
            else
                continue;
            faults << " at (" << p.X() << ", " << p.Y() << ", " << p.Z() << "); ";
        }
    }
    if (told <= 300)
        faults << "only " << told << " points could be told; ";
    return faults.str();
}

void expectFitAtPoints(Soup const& part, Pieces const& pieces, UVector3<float> const& gap)
{
    EXPECT_EQ(fitFaultsAtPoints(part, pieces, gap), "");
}

double volumeBelow(Soup const& part, Freecut::PlaneGraphicObject& plane)
{
    PinHoleParas none;
    none.radius = 1000;
    none.faceclearance = 0;
    TestDocument test;
    auto* const object = test.add(part, "part");
    PinHoleCutter cutter(none, false, {object}, &plane);
    cutter.execute({});
    // Without connectors the upper half comes first.
    return volumeOf(soupOf(*cutter.getResult().at(object).at(1)));
}
