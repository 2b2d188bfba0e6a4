// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstdint>

/// A random number for an edge between two points, with the sign of its direction: over triangles of
/// which each edge is run along as often one way as the other these add up to 0, modulo 2^64, and over
/// others hardly ever.
inline std::uint64_t signedEdge(std::uint32_t from, std::uint32_t to)
{
    std::uint64_t number = std::uint64_t(std::min(from, to)) << 32 | std::max(from, to);
    number *= 0x9e3779b97f4a7c15;
    number ^= number >> 32;
    number *= 0xd6e8feb86659fd93;
    return from < to ? number : 0 - number;
}
