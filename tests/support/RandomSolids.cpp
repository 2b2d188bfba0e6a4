// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/RandomSolids.h"

#include "tests/support/Validator.h"

#include <cmath>
#include <numbers>

namespace {

int numberBetween(std::mt19937& random, int low, int high)
{
    return low + int(random() % unsigned(high - low + 1));
}

double share(std::mt19937& random)
{
    return double(random()) / 4294967296.0;
}

Soup hollow(Soup soup, Soup cavity)
{
    cavity.flip();
    soup.append(cavity);
    return soup;
}

NamedSoup randomSolid(std::mt19937& random)
{
    switch (random() % 9) {
        case 0:
            return {"box", box(7, 9, 5)};
        case 1:
            return {"cylinder", cylinder(3, 9, 11)};
        case 2:
            return {"tube", tube(5, 3, 6, 10)};
        case 3:
            return {"torus", torus(4, 1.5f, 12, 7)};
        case 4:
            return {"sphere", sphere(5, 7, 10)};
        case 5:
            return {"lattice", lattice(1)};
        case 6:
            return {"hollow ball", hollow(sphere(5, 7, 9), sphere(3, 5, 7))};
        case 7:
            return {"hollow box", hollow(box(9, 8, 7), box(5, 4, 3, {2, 2, 2}))};
        default:
            return {"needle", cylinder(0.05f, 14, 5)};
    }
}

/// A tetrahedron with whole corners.
Soup gridTetrahedron(std::mt19937& random)
{
    for (;;) {
        Soup soup;
        for (int i = 0; i < 4; ++i)
            soup.add({float(numberBetween(random, 0, 5)), float(numberBetween(random, 0, 5)),
                      float(numberBetween(random, 0, 5))});
        for (auto const& [a, b, c] :
             {std::array<unsigned, 3>{0, 2, 1}, {0, 1, 3}, {1, 2, 3}, {0, 3, 2}})
            soup.add(a, b, c);
        if (volumeOf(soup) < 0)
            soup.flip();
        if (volumeOf(soup) > 0)
            return soup;
    }
}

/// An upright prism over a polygon of whole corners.
Soup gridPrism(std::mt19937& random)
{
    static constexpr int diamond[][2] = {{0, 2}, {2, 0}, {4, 2}, {2, 4}};
    static constexpr int octagon[][2] = {{1, 0}, {3, 0}, {4, 1}, {4, 3},
                                         {3, 4}, {1, 4}, {0, 3}, {0, 1}};
    static constexpr int wedge[][2] = {{0, 0}, {4, 0}, {0, 3}};
    auto const build = [&](auto const& outline) {
        Soup soup;
        std::uint32_t const n = std::size(outline);
        float const height = float(numberBetween(random, 1, 4));
        for (float const z : {0.0f, height})
            for (auto const& p : outline)
                soup.add({float(p[0]), float(p[1]), z});
        for (std::uint32_t i = 0; i < n; ++i) {
            std::uint32_t const k = (i + 1) % n;
            soup.add(i, k, n + k);
            soup.add(i, n + k, n + i);
        }
        for (std::uint32_t i = 1; i + 1 < n; ++i) {
            soup.add(0, i + 1, i);
            soup.add(n, n + i, n + i + 1);
        }
        return soup;
    };
    switch (random() % 3) {
        case 0:
            return build(diamond);
        case 1:
            return build(octagon);
        default:
            return build(wedge);
    }
}

NamedSoup randomGridSolid(std::mt19937& random, bool withSelfTouching)
{
    // Compilers evaluate arguments in orders of their own; all of them are to make the same solids.
    auto const randomBox = [&](UPoint3<float> const& corner) {
        float const depth = float(numberBetween(random, 1, 4));
        float const width = float(numberBetween(random, 1, 4));
        float const length = float(numberBetween(random, 1, 4));
        return box(length, width, depth, corner);
    };
    switch (random() % (withSelfTouching ? 7 : 5)) {
        case 0:
            return {"box", randomBox({0, 0, 0})};
        case 1:
            return {"tetrahedron", gridTetrahedron(random)};
        case 2:
            return {"prism", gridPrism(random)};
        case 3:
            return {"hollow box", hollow(box(5, 5, 5), randomBox({0.5f, 0.5f, 0.5f}))};
        case 4: {
            Soup soup = randomBox({0, 0, 0});
            soup.append(randomBox({5, 0, 1}));
            return {"two boxes", soup};
        }
        case 5: {
            auto const seed = unsigned(random());
            return {"voxels", randomVoxels(2 + int(random() % 2), seed)};
        }
        default: {
            Soup soup = box(2, 2, 2);
            soup.append(box(2, 3, 2, {2, 2, float(random() % 2)}));
            soup.joinPoints();
            return {"boxes touching", soup};
        }
    }
}

}  // namespace

UMatrix4<float> randomMotion(std::mt19937& random, float reach)
{
    double const z = 2 * share(random) - 1, around = 2 * std::numbers::pi * share(random);
    double const flat = std::sqrt(1 - z * z);
    double const axis[3] = {flat * std::cos(around), flat * std::sin(around), z};
    double const angle = 2 * std::numbers::pi * share(random);
    double const c = std::cos(angle), s = std::sin(angle);
    UMatrix4<float> motion;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column) {
            double value = axis[row] * axis[column] * (1 - c);
            if (row == column)
                value += c;
            else
                value += s * axis[3 - row - column] * ((column + 1) % 3 == row ? 1 : -1);
            motion(row, column) = float(value);
        }
    for (int row = 0; row < 3; ++row)
        motion(row, 3) = float(reach * (2 * share(random) - 1));
    return motion;
}

UMatrix4<float> randomGridMotion(std::mt19937& random, int reach)
{
    int const first = int(random() % 3);
    int const second = (first + 1 + int(random() % 2)) % 3;
    int const rows[3] = {first, second, 3 - first - second};
    UMatrix4<float> motion;
    for (int column = 0; column < 3; ++column)
        for (int row = 0; row < 3; ++row)
            motion(row, column) = row == rows[column] ? (random() % 2 ? 1.0f : -1.0f) : 0.0f;
    if (motion.linearDeterminant() < 0)
        for (int row = 0; row < 3; ++row)
            motion(row, 0) = -motion(row, 0);
    for (int row = 0; row < 3; ++row)
        motion(row, 3) = float(numberBetween(random, -reach, reach));
    return motion;
}

SolidPair randomPair(std::mt19937& random)
{
    NamedSoup const a = randomSolid(random);
    NamedSoup const b = randomSolid(random);
    return {a.name + " and " + b.name, moved(a.soup, randomMotion(random, 1)),
            moved(b.soup, randomMotion(random, 5))};
}

SolidPair randomGridPair(std::mt19937& random, bool withSelfTouching)
{
    NamedSoup const a = randomGridSolid(random, withSelfTouching);
    NamedSoup const b = randomGridSolid(random, withSelfTouching);
    return {a.name + " and " + b.name + " on a grid", moved(a.soup, randomGridMotion(random, 1)),
            moved(b.soup, randomGridMotion(random, 3))};
}
