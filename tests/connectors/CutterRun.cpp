// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/connectors/CutterRun.h"

#include "platform/services/Intersect.h"

#include <gtest/gtest.h>

#include <algorithm>

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

/// What two solids have in common of a line along Z.
double commonLength(Soup const& a, Soup const& b, float x, float y)
{
    auto const inA = crossingsAlongZ(a, x, y), inB = crossingsAlongZ(b, x, y);
    double length = 0;
    for (std::size_t i = 0; i + 1 < inA.size(); i += 2)
        for (std::size_t j = 0; j + 1 < inB.size(); j += 2)
            length += std::max(0.0f, std::min(inA[i + 1], inB[j + 1]) - std::max(inA[i], inB[j]));
    return length;
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

void expectFitAlongLines(Soup const& part, Pieces const& pieces, UVector3<float> const& gap)
{
    EXPECT_EQ(closedSolidFaults(pieces.lower), "");
    EXPECT_EQ(closedSolidFaults(pieces.upper), "");
    double const whole = volumeOf(part);
    double const both = volumeOf(pieces.lower) + volumeOf(pieces.upper);
    EXPECT_LE(both, whole * (1 + 1e-6));
    EXPECT_GE(both, 0.8 * whole);
    Soup together = pieces.upper;
    UBox3<float> box;
    for (auto& p : together.points) {
        box.Add(p);
        p -= gap;
    }
    constexpr int lines = 5;
    for (int i = 0; i < lines; ++i)
        for (int j = 0; j < lines; ++j) {
            float const x = box.MinX() + (float(i) + 0.37f) / lines * (box.MaxX() - box.MinX());
            float const y = box.MinY() + (float(j) + 0.61f) / lines * (box.MaxY() - box.MinY());
            EXPECT_LE(commonLength(pieces.lower, pieces.upper, x, y), 1e-4) << x << " " << y;
            EXPECT_LE(commonLength(pieces.lower, together, x, y), 1e-4) << x << " " << y;
        }
}
