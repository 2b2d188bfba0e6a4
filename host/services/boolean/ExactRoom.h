// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

/// Whether the exact way of combining two solids stays below four gigabytes, which is known well
/// enough beforehand to end before the machine is short of memory.
///
/// triangles  of both operands
/// segments   pieces of the curves in which they meet
constexpr bool hasExactRoom(std::size_t triangles, std::size_t segments)
{
    constexpr std::size_t perTriangle = 1500, perSegment = 60000, most = std::size_t(4) << 30;
    return triangles * perTriangle + segments * perSegment <= most;
}
