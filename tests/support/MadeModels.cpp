// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/MadeModels.h"

#include "platform/services/EarcutPolygon.h"
#include "tests/support/IsoSurface.h"
#include "tests/support/Rounds.h"
#include "tests/support/Validator.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

using Point = UPoint3<float>;
using Index = std::uint32_t;

constexpr double pi = std::numbers::pi;

/// A value between -1 and 1 that nothing tells from chance, the same for the same number.
double noise(std::uint32_t number)
{
    number = (number ^ (number >> 16)) * 0x45d9f3bu;
    number = (number ^ (number >> 16)) * 0x45d9f3bu;
    number ^= number >> 16;
    return double(number) / 2147483648.0 - 1;
}

struct Direction
{
    double x, y, z;
};

/// A hump on a sphere around a direction.
double hump(Direction const& d, Direction const& centre, double width)
{
    double const x = d.x - centre.x, y = d.y - centre.y, z = d.z - centre.z;
    return std::exp(-(x * x + y * y + z * z) / (width * width));
}

/// The head's radius; it faces along -y.
double headRadius(Direction const& d)
{
    double const x = d.x / 62, y = d.y / 75, z = d.z / 88;
    double radius = 1 / std::sqrt(x * x + y * y + z * z);
    radius += 16 * hump(d, {0, -0.98, -0.1}, 0.17);
    radius -= 7 * (hump(d, {-0.3, -0.93, 0.15}, 0.16) + hump(d, {0.3, -0.93, 0.15}, 0.16));
    radius += 9 * (hump(d, {-0.99, 0.05, 0}, 0.14) + hump(d, {0.99, 0.05, 0}, 0.14));
    radius -= 3 * hump(d, {0, -0.88, -0.45}, 0.12);
    radius += 0.8 * std::sin(9 * d.x + 4 * d.z) * std::sin(8 * d.y - 5 * d.z);
    return radius + 0.2 * std::sin(41 * d.x) * std::sin(37 * d.y + 11 * d.z);
}

/// A surface over rings of points, each joined with the next one and the last with the first: the
/// points of ring i stand at i * count.
void joinRings(Soup& soup, Index rings, Index count, bool isClosed)
{
    for (Index i = 0; i + (isClosed ? 0 : 1) < rings; ++i)
        for (Index k = 0; k < count; ++k) {
            Index const a = i * count + k, b = i * count + (k + 1) % count;
            Index const c = (i + 1) % rings * count + (k + 1) % count;
            Index const d = (i + 1) % rings * count + k;
            soup.add(a, b, c);
            soup.add(a, c, d);
        }
}

Soup facingOutward(Soup soup)
{
    if (volumeOf(soup) < 0)
        soup.flip();
    return soup;
}

Point around(double radius, double angle, double z)
{
    return {float(radius * std::cos(angle)), float(radius * std::sin(angle)), float(z)};
}

using Outline = std::vector<std::array<double, 2>>;

/// A rectangle with round corners in x and z, anticlockwise; a circle if they leave no edges.
Outline rounded(double x0, double z0, double x1, double z1, double radius)
{
    constexpr int steps = 12;
    Outline outline;
    bool const isCircle = x1 - x0 < 2 * radius + 1e-9;
    for (int i = 0; i < 4 * (steps + 1); ++i) {
        int const corner = i / (steps + 1), step = i % (steps + 1);
        if (isCircle && step == steps)
            continue;
        double const t = pi / 2 * (corner + double(step) / steps);
        outline.push_back(
            {(corner == 0 || corner == 3 ? x1 - radius : x0 + radius) + radius * std::cos(t),
             (corner < 2 ? z1 - radius : z0 + radius) + radius * std::sin(t)});
    }
    return outline;
}

/// An outline less the others, drawn in x and z, from y = -depth to y = depth.
Soup extruded(std::vector<Outline> const& outlines, float depth)
{
    Soup soup;
    std::vector<Index> lower, upper;
    for (Outline const& outline : outlines) {
        Soup wall;
        for (float const y : {-depth, depth})
            for (auto const& [x, z] : outline)
                wall.add({float(x), y, float(z)});
        joinRings(wall, 2, Index(outline.size()), false);
        // Holes face the other way.
        if (&outline != &outlines.front())
            wall.flip();
        for (Index i = 0; i < outline.size(); ++i) {
            lower.push_back(Index(soup.points.size()) + i);
            upper.push_back(Index(soup.points.size() + outline.size()) + i);
        }
        soup.append(wall);
    }
    std::vector<int> const indices = EarcutPolygon::earcut(outlines);
    for (std::size_t i = 0; i + 2 < indices.size(); i += 3) {
        auto const at = [&](std::size_t k) { return std::size_t(indices[i + k]); };
        soup.add(lower[at(0)], lower[at(2)], lower[at(1)]);
        soup.add(upper[at(0)], upper[at(1)], upper[at(2)]);
    }
    return soup;
}

struct Limb
{
    Point a, b;
    float radius;
};

float distanceFrom(Limb const& limb, Point const& p)
{
    UVector3<float> const along = limb.b - limb.a;
    float const share = std::clamp(((p - limb.a) | along) / (along | along), 0.0f, 1.0f);
    return (p - (limb.a + along * share)).GetLength() - limb.radius;
}

/// The lesser of two distances, with a fillet.
float blended(float a, float b, float fillet)
{
    float const h = std::max(fillet - std::fabs(a - b), 0.0f) / fillet;
    return std::min(a, b) - h * h * fillet / 4;
}

std::vector<Limb> const& limbs()
{
    static std::vector<Limb> const all{
        {{0, 0, 46}, {60, 0, 49}, 15},       {{4, -9, 40}, {2, -12, 5.5f}, 5.5f},
        {{4, 9, 40}, {2, 12, 5.5f}, 5.5f},   {{57, -9, 40}, {60, -12, 5.5f}, 5.5f},
        {{57, 9, 40}, {60, 12, 5.5f}, 5.5f}, {{60, 0, 50}, {78, 0, 72}, 8},
        {{78, 0, 72}, {92, 0, 68}, 9},       {{80, -5, 78}, {84, -13, 92}, 2.4f},
        {{80, 5, 78}, {84, 13, 92}, 2.4f},   {{-12, 0, 50}, {-36, 5, 70}, 2.8f}};
    return all;
}

/// The profile of the flange from its bore outward and back, in radius and height.
std::vector<std::array<double, 2>> flangeProfile()
{
    std::vector<std::array<double, 2>> profile{{10, 0}, {39, 0}, {40, 1}, {40, 5}, {39, 6}};
    constexpr int steps = 10;
    for (int i = 0; i <= steps; ++i) {
        double const t = 1.5 * pi - 0.5 * pi * i / steps;
        profile.push_back({24 + 6 * std::cos(t), 12 + 6 * std::sin(t)});
    }
    for (int i = 0; i <= steps; ++i) {
        double const t = pi * i / steps;
        profile.push_back({17.5 + 0.5 * std::cos(t), 50 + 0.5 * std::sin(t)});
    }
    profile.insert(profile.end(), {{17, 16}, {12, 12}, {10, 12}});
    return profile;
}

}  // namespace

Soup scannedHead(int fineness)
{
    Soup soup;
    auto const add = [&](int i, int j, int k) {
        // Even steps of the angle on each side of the cube.
        auto const at = [&](int n) { return std::tan((double(n) / fineness - 0.5) * pi / 2); };
        Direction d{at(i), at(j), at(k)};
        double const length = std::sqrt(d.x * d.x + d.y * d.y + d.z * d.z);
        d = {d.x / length, d.y / length, d.z / length};
        auto const number = std::uint32_t((i * 1009 + j) * 1009 + k);
        double const radius = headRadius(d) + 0.03 * noise(number);
        return soup.add({float(d.x * radius), float(d.y * radius), float(d.z * radius + 90)});
    };
    for (int side = 0; side < 6; ++side)
        for (int u = 0; u < fineness; ++u)
            for (int v = 0; v < fineness; ++v) {
                auto const corner = [&](int du, int dv) {
                    int place[3];
                    int const axis = side / 2;
                    place[axis] = side % 2 ? fineness : 0;
                    // Anticlockwise seen from outside on both of an axis's sides.
                    place[(axis + 1) % 3] = side % 2 ? u + du : v + dv;
                    place[(axis + 2) % 3] = side % 2 ? v + dv : u + du;
                    return add(place[0], place[1], place[2]);
                };
                Index const a = corner(0, 0), b = corner(1, 0), c = corner(1, 1), d = corner(0, 1);
                soup.add(a, b, c);
                soup.add(a, c, d);
            }
    soup.joinPoints();
    return soup;
}

Soup openHead(int fineness)
{
    Soup soup = scannedHead(fineness);
    std::erase_if(soup.triangles, [&](auto const& t) {
        return soup.points[t[0]].Z() < 4 && soup.points[t[0]].X() > 0;
    });
    return soup;
}

Soup branchedFigure()
{
    Grid const grid{{-44, -24, -3}, 2, {76, 25, 52}};
    return isoSurface(grid, [](Point const& p) {
        float distance = 100;
        for (Limb const& limb : limbs())
            distance = blended(distance, distanceFrom(limb, p), 4);
        return distance + 0.15f * std::sin(1.3f * p.X()) * std::sin(1.7f * p.Y() + 1.1f * p.Z());
    });
}

Soup crossingFigure()
{
    Soup soup = branchedFigure();
    Soup ring = torus(12, 5, 48, 20);
    for (Point& p : ring.points)
        p += UVector3<float>(28.3f, 0.7f, 61.1f);
    soup.append(ring);
    return soup;
}

Soup mechanicalPlate()
{
    // Windows and a slot that leave walls of 1.2 mm beside them and beside the edge; no two edges
    // are in line, which would give triangles without area.
    std::vector<Outline> outlines{rounded(-40, 0, 40, 60, 8), rounded(-38.8, 12, -20, 48.1, 3),
                                  rounded(-18.8, 12.2, 0, 48.4, 3.1), rounded(8, 50, 34, 56, 2.9),
                                  rounded(9, 19, 31, 41, 11)};
    double level = 6;
    for (double const x : {-30.0, -10.0, 8.0, 32.0}) {
        outlines.push_back(rounded(x - 2.6, level - 2.6, x + 2.6, level + 2.6, 2.6));
        level += 0.37;
    }
    return facingOutward(extruded(outlines, 7));
}

Soup turnedFlange()
{
    auto const profile = flangeProfile();
    constexpr Index turns = 120;
    Soup soup;
    for (auto const& [radius, z] : profile)
        for (Index k = 0; k < turns; ++k)
            soup.add(around(radius, 2 * pi * k / turns, z));
    joinRings(soup, Index(profile.size()), turns, true);
    return facingOutward(std::move(soup));
}

Soup twistedVase()
{
    constexpr Index rows = 50, count = 96;
    constexpr double height = 80, wall = 1.6;
    auto const radiusAt = [](double z, double angle) {
        return 22 + 8 * std::sin(0.06 * z + 0.4) + 0.9 * std::sin(9 * angle + 0.05 * z);
    };
    Soup soup;
    auto const addRow = [&](double z, double inset) {
        for (Index k = 0; k < count; ++k) {
            double const angle = 2 * pi * k / count;
            soup.add(around(radiusAt(z, angle) - inset, angle, z));
        }
    };
    for (Index i = 0; i <= rows; ++i)
        addRow(height * i / rows, 0);
    for (Index i = 0; i <= rows; ++i)
        addRow(height - (height - 2) * i / rows, wall);
    Index const rings = 2 * (rows + 1);
    joinRings(soup, rings, count, false);
    Index const below = soup.add({0, 0, 0}), inside = soup.add({0, 0, 2});
    for (Index k = 0; k < count; ++k) {
        Index const next = (k + 1) % count;
        soup.add(below, next, k);
        soup.add(inside, (rings - 1) * count + k, (rings - 1) * count + next);
    }
    return facingOutward(std::move(soup));
}

std::vector<MadeModel> madeModels()
{
    return {{"mechanical plate", mechanicalPlate()},
            {"turned flange", turnedFlange(), true},
            {"twisted vase", twistedVase(), true},
            {"scanned head", scannedHead(45)},
            {"branched figure", branchedFigure()}};
}

std::vector<NamedSoup> closedModels(std::size_t maximumTriangles)
{
    std::vector<NamedSoup> models;
    if (isUnderSanitizers) {
        maximumTriangles = std::min<std::size_t>(maximumTriangles, 10000);
        models.push_back({"small head", scannedHead(20)});
    }
    for (MadeModel& made : madeModels())
        if (made.soup.triangles.size() <= maximumTriangles)
            models.push_back({std::move(made.name), std::move(made.soup)});
    auto real = closedRealMeshes(maximumTriangles);
    std::move(real.begin(), real.end(), std::back_inserter(models));
    return models;
}

std::vector<NamedSoup> stoutModels(std::size_t maximumTriangles)
{
    auto models = closedModels(maximumTriangles);
    for (MadeModel const& made : madeModels())
        if (made.isThin)
            std::erase_if(models, [&](NamedSoup const& model) { return model.name == made.name; });
    return models;
}

std::vector<NamedSoup> soundModels(std::size_t maximumTriangles)
{
    auto models = closedModels(maximumTriangles);
    std::erase_if(models, [](NamedSoup const& model) { return model.name == "cow-6k.stl"; });
    return models;
}

std::vector<NamedSoup> withReal(NamedSoup made, std::string const& fileName)
{
    std::vector<NamedSoup> models{std::move(made)};
    if (Soup real = realMesh(fileName); !real.triangles.empty())
        models.push_back({fileName, std::move(real)});
    return models;
}
