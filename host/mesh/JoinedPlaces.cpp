// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/mesh/JoinedPlaces.h"

#include <array>
#include <bit>
#include <cstddef>

namespace {

using Bits = std::array<std::uint32_t, 3>;

/// Equal for points that are the same, also for coordinates that are no numbers.
Bits bitsOf(UPoint3<float> const& p)
{
    return {std::bit_cast<std::uint32_t>(p.X() + 0.0f), std::bit_cast<std::uint32_t>(p.Y() + 0.0f),
            std::bit_cast<std::uint32_t>(p.Z() + 0.0f)};
}

std::uint64_t hashOf(Bits const& bits)
{
    std::uint64_t hash = 0;
    for (std::uint32_t const word : bits) {
        hash = (hash ^ word) * 0x9e3779b97f4a7c15u;
        hash ^= hash >> 32;
    }
    return hash;
}

}  // namespace

std::vector<std::uint32_t> joinedPlaces(std::span<UPoint3<float> const> points)
{
    // Open addressing with linear probing, half empty; an entry is a place and one, or 0.
    std::size_t const size = std::bit_ceil(2 * points.size() + 1);
    std::vector<std::uint32_t> table(size, 0);
    std::vector<std::uint32_t> places(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        Bits const bits = bitsOf(points[i]);
        std::size_t slot = hashOf(bits) & (size - 1);
        while (table[slot] != 0 && bitsOf(points[table[slot] - 1]) != bits)
            slot = (slot + 1) & (size - 1);
        if (table[slot] == 0)
            table[slot] = std::uint32_t(i + 1);
        places[i] = table[slot] - 1;
    }
    return places;
}
