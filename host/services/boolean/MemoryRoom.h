// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

/// What an operation may take on is known well enough beforehand to end before the machine is short
/// of memory.
///
/// available  bytes, as availableMemory() tells them

/// How many contacts of triangles may become curves and facets. Each takes some hundred bytes.
constexpr std::size_t mostContacts(std::uint64_t available)
{
    constexpr std::uint64_t most = 40'000'000, perContact = 300;
    return std::size_t(std::min(most, available / perContact));
}

/// So few that there is always memory for them: some megabytes.
constexpr std::size_t contactsThatFit = 10'000;

/// Whether the exact way of combining two solids stays below four gigabytes and what there is.
///
/// triangles  of both operands
/// segments   pieces of the curves in which they meet
constexpr bool hasExactRoom(std::size_t triangles, std::size_t segments, std::uint64_t available)
{
    constexpr std::uint64_t perTriangle = 1500, perSegment = 60000, most = std::uint64_t(4) << 30;
    return triangles * perTriangle + segments * perSegment <= std::min(most, available);
}
