// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/mesh/JoinedPlaces.h"

#include "host/memory/HugePages.h"

#include <algorithm>
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

/// Open addressing with linear probing, at most half full; an entry is a place and one, or 0.
class PlaceTable
{
public:
    explicit PlaceTable(std::span<UPoint3<float> const> points)
        : m_points(points), m_slotMask(std::bit_ceil(2 * points.size() + 1) - 1)
    {
        reserveOnHugePages(m_table, m_slotMask + 1);
        m_table.resize(m_slotMask + 1, 0);
    }

    /// Where the search for a point begins. Asks for the entry to be fetched into the cache.
    std::size_t fetchSlot(std::size_t place) const
    {
        std::size_t const slot = hashOf(bitsOf(m_points[place])) & m_slotMask;
        __builtin_prefetch(&m_table[slot]);
        return slot;
    }

    /// Asks for the point that stands at a slot.
    void fetchPoint(std::size_t slot) const
    {
        // An empty entry fetches the first point: cheaper than a branch that cannot be foreseen.
        std::uint32_t const entry = m_table[slot];
        __builtin_prefetch(&m_points[entry - (entry != 0)]);
    }

    /// The first place that was entered with this point, which may be this one.
    std::uint32_t enter(std::size_t place, std::size_t slot)
    {
        Bits const bits = bitsOf(m_points[place]);
        while (m_table[slot] != 0 && bitsOf(m_points[m_table[slot] - 1]) != bits)
            slot = (slot + 1) & m_slotMask;
        if (m_table[slot] == 0)
            m_table[slot] = std::uint32_t(place + 1);
        return m_table[slot] - 1;
    }

private:
    std::span<UPoint3<float> const> m_points;
    std::size_t m_slotMask;
    std::vector<std::uint32_t> m_table;
};

}  // namespace

std::vector<std::uint32_t> joinedPlaces(std::span<UPoint3<float> const> points)
{
    // What a batch needs of table and points is fetched before the first of it is used.
    constexpr std::size_t batchSize = 128;
    PlaceTable table(points);
    std::vector<std::uint32_t> places;
    reserveOnHugePages(places, points.size());
    places.resize(points.size());
    std::array<std::size_t, batchSize> starts;
    for (std::size_t begin = 0; begin < points.size(); begin += batchSize) {
        std::size_t const count = std::min(batchSize, points.size() - begin);
        for (std::size_t k = 0; k < count; ++k)
            starts[k] = table.fetchSlot(begin + k);
        for (std::size_t k = 0; k < count; ++k)
            table.fetchPoint(starts[k]);
        for (std::size_t k = 0; k < count; ++k)
            places[begin + k] = table.enter(begin + k, starts[k]);
    }
    return places;
}
