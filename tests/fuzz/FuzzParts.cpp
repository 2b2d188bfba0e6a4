// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/fuzz/FuzzParts.h"

#include "tests/support/RandomSolids.h"

namespace {

float place(std::mt19937& random, int most)
{
    return float(random() % unsigned(most + 1));
}

Soup shell(std::mt19937& random)
{
    switch (random() % 5) {
        case 0:
            return sphere(2, 3 + int(random() % 2), 4 + int(random() % 3));
        case 1:
            return cylinder(2, 3, 3 + int(random() % 4));
        case 2:
            return randomGridPair(random, true).a;
        default:
            return box(1 + place(random, 3), 1 + place(random, 3), 1 + place(random, 3));
    }
}

Soup shifted(Soup soup, float x, float y, float z)
{
    for (auto& p : soup.points)
        p = {p.X() + x, p.Y() + y, p.Z() + z};
    return soup;
}

/// One point goes somewhere else; its triangles follow and cross what is in their way.
void displacePoint(Soup& soup, std::mt19937& random)
{
    soup.joinPoints();
    // Shells that take each other away may leave nothing.
    if (soup.points.empty())
        return;
    auto& p = soup.points[random() % soup.points.size()];
    p = {place(random, 6) - 1, place(random, 6) - 1, place(random, 6) - 1};
}

void jitter(Soup& soup, std::mt19937& random)
{
    soup.joinPoints();
    float const reach = random() % 2 ? 0.5f : 1e-5f;
    for (auto& p : soup.points)
        p += UVector3<float>(place(random, 8) - 4, place(random, 8) - 4, place(random, 8) - 4) *
             (reach / 4);
}

}  // namespace

Soup randomBrokenPart(std::mt19937& random, bool withInverted)
{
    Soup part;
    for (unsigned count = 1 + random() % 3; count > 0; --count) {
        Soup one = shifted(shell(random), place(random, 3), place(random, 3), place(random, 3));
        if (withInverted && random() % 4 == 0)
            one.flip();
        part.append(one);
        if (random() % 12 == 0)
            part.append(random() % 2 ? one : shifted(one, 2.5e-7f, 0, 1e-6f));
    }
    if (random() % 4 == 0)
        displacePoint(part, random);
    if (random() % 6 == 0)
        jitter(part, random);
    part.joinPoints();
    return random() % 2 ? part : moved(part, randomMotion(random, 1));
}

Soup damaged(Soup part, std::mt19937& random)
{
    auto& triangles = part.triangles;
    auto const chosen = std::ptrdiff_t(random() % triangles.size());
    switch (random() % 3) {
        case 0:
            triangles.erase(triangles.begin() + chosen);
            break;
        case 1:
            triangles.push_back(triangles[std::size_t(chosen)]);
            break;
        default:
            std::swap(triangles[std::size_t(chosen)][0], triangles[std::size_t(chosen)][1]);
    }
    return part;
}
