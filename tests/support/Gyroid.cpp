// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Gyroid.h"

#include "tests/support/IsoSurface.h"

#include <cmath>
#include <numbers>

Soup gyroidBlock(int cells, int steps)
{
    constexpr float period = 10;
    float const step = period / float(steps);
    float const end = period * float(cells);
    // One grid point beyond the block on each side, which is never solid.
    int const count = cells * steps + 3;
    return isoSurface({{-step, -step, -step}, step, {count, count, count}}, [&](auto const& p) {
        float angle[3];
        for (int i = 0; i < 3; ++i) {
            if (p[i] < -step / 2 || p[i] > end + step / 2)
                return 1.0f;
            angle[i] = p[i] * float(2 * std::numbers::pi) / period + 0.1f;
        }
        float const gyroid = std::sin(angle[0]) * std::cos(angle[1]) +
                             std::sin(angle[1]) * std::cos(angle[2]) +
                             std::sin(angle[2]) * std::cos(angle[0]);
        return std::fabs(gyroid) - 0.7f;
    });
}
