// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/MeshBuilders.h"
#include "tests/support/Soup.h"

/// A box of 20 x 30 x 40, and above its top a pyramid that points down with its tip, which is the last
/// point: below 40 it reaches through the top.
inline Soup boxUnderATip(float tipHeight)
{
    Soup soup = box(20, 30, 40);
    Soup pyramid;
    pyramid.points = {{5, 5, 50}, {15, 5, 50}, {15, 15, 50}, {5, 15, 50}, {10.5f, 9, tipHeight}};
    pyramid.add(0, 1, 2);
    pyramid.add(0, 2, 3);
    for (std::uint32_t k = 0; k < 4; ++k)
        pyramid.add((k + 1) % 4, k, 4);
    soup.append(pyramid);
    return soup;
}
