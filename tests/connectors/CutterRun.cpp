// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/connectors/CutterRun.h"

#include "platform/services/Intersect.h"
#include "tests/support/WindingField.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <optional>

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

/// Points beside the middle of each of at most `most` triangles, on both sides.
std::vector<UPoint3<double>> pointsBeside(Soup const& soup, std::size_t most, double height)
{
    std::vector<UPoint3<double>> points;
    std::size_t const step = std::max<std::size_t>(1, soup.triangles.size() / most);
    for (std::size_t i = 0; i < soup.triangles.size(); i += step) {
        UPoint3<double> p[3];
        for (std::size_t k = 0; k < 3; ++k) {
            auto const& corner = soup.points[soup.triangles[i][k]];
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

void expectFitAtPoints(Soup const& part, Pieces const& pieces, UVector3<float> const& gap)
{
    EXPECT_EQ(closedSolidFaults(pieces.lower), "");
    EXPECT_EQ(closedSolidFaults(pieces.upper), "");
    double const whole = volumeOf(part);
    double const both = volumeOf(pieces.lower) + volumeOf(pieces.upper);
    EXPECT_LE(both, whole * (1 + 1e-6));
    EXPECT_GE(both, 0.8 * whole);
    Soup together = pieces.upper;
    for (auto& p : together.points)
        p -= gap;
    judge::WindingField const source(part), lower(pieces.lower), upper(pieces.upper), put(together);
    constexpr double height = 5e-3, margin = 1e-3;
    std::size_t told = 0;
    for (Soup const* const soup :
         {&pieces.lower, &pieces.upper, static_cast<Soup const*>(&together)})
        for (auto const& p : pointsBeside(*soup, 1500, height)) {
            std::vector<int> const w = windingsAt(p, margin, {&source, &lower, &upper, &put});
            if (w.empty())
                continue;
            ++told;
            SCOPED_TRACE(testing::Message() << p.X() << " " << p.Y() << " " << p.Z());
            EXPECT_LE(w[1] + w[2], w[0]) << "solid outside the part or in both pieces";
            EXPECT_LE(w[1] + w[3], 1) << "the pieces meet when put together";
        }
    EXPECT_GT(told, 300u);
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
