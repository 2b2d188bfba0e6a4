// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/fuzz/FuzzSolids.h"

#include "host/services/MeshErrors.h"
#include "tests/support/Validator.h"

#include <cmath>
#include <functional>

namespace {

/// Few triangles, turned freely and then moved to a grid of quarters.
Soup snapped(Soup soup, std::mt19937& random)
{
    soup = moved(soup, randomMotion(random, 0));
    for (auto& p : soup.points)
        for (float* const coordinate : {&p.X(), &p.Y(), &p.Z()})
            *coordinate = std::round(*coordinate * 4) / 4;
    return soup;
}

Soup snappedSolid(std::mt19937& random)
{
    switch (random() % 4) {
        case 0:
            return snapped(cylinder(2, 3, 3 + int(random() % 6)), random);
        case 1:
            return snapped(tube(2.5f, 1.25f, 2, 4 + int(random() % 4)), random);
        case 2:
            return snapped(sphere(2, 4, 6), random);
        default:
            return snapped(box(2, 3, 1), random);
    }
}

/// Solids beside each other whose boxes touch or lie apart.
Soup row(std::mt19937& random)
{
    Soup soup;
    float reached = 0;
    for (int i = 0; i < 2 + int(random() % 3); ++i) {
        Soup one = randomGridPair(random, false).a;
        float low = one.points[0].X(), high = low;
        for (auto const& p : one.points) {
            low = std::min(low, p.X());
            high = std::max(high, p.X());
        }
        for (auto& p : one.points)
            p.X() += reached - low;
        reached += high - low + float(random() % 2);
        soup.append(one);
    }
    if (random() % 2)
        soup.joinPoints();
    return soup;
}

Soup anySolid(std::mt19937& random)
{
    switch (random() % 6) {
        case 0:
            return row(random);
        case 1:
            return snappedSolid(random);
        case 2:
            return randomVoxels(2 + int(random() % 3), unsigned(random()));
        case 3:
            return lattice(1);
        default:
            return randomGridPair(random, true).a;
    }
}

}  // namespace

bool isSoundSolid(Soup const& soup)
{
    if (soup.triangles.empty() || !closedSolidFaults(soup).empty())
        return false;
    std::function<void(int)> const unasked;
    StageProgress progress(unasked);
    MeshErrors const errors =
        findErrors({soup.points, soup.triangles}, Repair::EvaluateErrors::ERROR_ALL, progress, 0);
    return errors.intersections.pairs == 0 && errors.counts.misorientedShells == 0 &&
           errors.topology.duplicateTriangles == 0 && errors.topology.degenerateTriangles == 0;
}

Soup randomFuzzSolid(std::mt19937& random)
{
    for (;;) {
        Soup soup = anySolid(random);
        if (isSoundSolid(soup))
            return soup;
    }
}

UMatrix4<float> randomFuzzMotion(std::mt19937& random)
{
    UMatrix4<float> motion = randomGridMotion(random, 3);
    if (random() % 4 == 0)
        for (int row = 0; row < 3; ++row)
            motion(row, 3) += 0.5f;
    if (random() % 16 == 0)
        motion(int(random() % 3), 3) += 2.5e-7f;
    return motion;
}
