// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/SmallParts.h"

#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr unsigned places = 5;

UPoint3<float> randomPlace(std::mt19937& random)
{
    return {float(random() % places), float(random() % places), float(random() % places)};
}

float randomSize(std::mt19937& random)
{
    return float(1 + random() % 3);
}

Soup randomBox(std::mt19937& random)
{
    Soup soup =
        box(randomSize(random), randomSize(random), randomSize(random), randomPlace(random));
    soup.joinPoints();
    return soup;
}

/// Two tips over a ring of any points.
Soup randomBipyramid(std::mt19937& random)
{
    Soup soup;
    unsigned const around = 3 + random() % 3;
    for (unsigned i = 0; i < around + 2; ++i)
        soup.add(randomPlace(random));
    for (unsigned i = 0; i < around; ++i) {
        unsigned const next = (i + 1) % around;
        soup.add(i, next, around);
        soup.add(next, i, around + 1);
    }
    return soup;
}

/// Gives sides of a box more corners, each anywhere in the plane of its side.
void crumple(Soup& soup, std::mt19937& random)
{
    for (unsigned count = 1 + random() % 3; count > 0; --count) {
        std::size_t const chosen = random() % soup.triangles.size();
        auto const t = soup.triangles[chosen];
        auto const &a = soup.points[t[0]], &b = soup.points[t[1]], &c = soup.points[t[2]];
        float const u = float(int(random() % 7) - 2) / 2, v = float(int(random() % 7) - 2) / 2;
        auto const corner = soup.add(a + (b - a) * u + (c - a) * v);
        soup.triangles[chosen] = {t[0], t[1], corner};
        soup.add(t[1], t[2], corner);
        soup.add(t[2], t[0], corner);
    }
}

/// One corner goes anywhere; its triangles follow.
void displace(Soup& soup, std::mt19937& random)
{
    soup.points[random() % soup.points.size()] = randomPlace(random);
}

Soup randomShell(std::mt19937& random)
{
    if (random() % 4 == 0)
        return randomBipyramid(random);
    Soup soup = randomBox(random);
    if (random() % 3 == 0)
        crumple(soup, random);
    if (random() % 6 == 0)
        displace(soup, random);
    return soup;
}

bool hasFlatTriangle(Soup const& soup)
{
    return std::any_of(soup.triangles.begin(), soup.triangles.end(), [&](auto const& t) {
        UVector3<float> const u = soup.points[t[1]] - soup.points[t[0]];
        UVector3<float> const v = soup.points[t[2]] - soup.points[t[0]];
        // Exact: all coordinates are halves or quarters of small whole numbers.
        return (u * v).GetLength() == 0;
    });
}

Soup makePart(std::mt19937& random)
{
    Soup soup;
    for (unsigned count = 1 + random() % 3; count > 0; --count)
        soup.append(randomShell(random));
    if (random() % 3 == 0)
        soup.joinPoints();
    return soup;
}

}  // namespace

Soup randomSmallPart(std::mt19937& random)
{
    for (;;) {
        Soup soup = makePart(random);
        if (!hasFlatTriangle(soup))
            return volumeOf(soup) < 0 ? (soup.flip(), soup) : soup;
    }
}
