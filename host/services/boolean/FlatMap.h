// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// A hash map from keys to numbers in one array. `Hash` gives 64 bits that are mixed already.
template <typename Key, typename Hash>
class FlatMap
{
public:
    static constexpr std::uint32_t none = 0xffffffff;

    explicit FlatMap(std::size_t expected = 256)
    {
        std::size_t size = 16;
        while (size < expected * 2)
            size *= 2;
        m_slots.resize(size);
    }

    /// The value of a key, `none` at first. The reference is valid until the next call.
    std::uint32_t& operator[](Key const& key)
    {
        if ((m_count + 1) * 2 > m_slots.size())
            grow();
        Slot& slot = slotOf(key);
        if (!slot.isUsed) {
            slot.key = key;
            slot.isUsed = true;
            ++m_count;
        }
        return slot.value;
    }

    /// The value of a key; `none` if it has none.
    std::uint32_t find(Key const& key) const
    {
        return const_cast<FlatMap*>(this)->slotOf(key).value;
    }

private:
    struct Slot
    {
        Key key{};
        std::uint32_t value = none;
        bool isUsed = false;
    };

    Slot& slotOf(Key const& key)
    {
        std::size_t const mask = m_slots.size() - 1;
        std::size_t i = Hash()(key) & mask;
        while (m_slots[i].isUsed && !(m_slots[i].key == key))
            i = (i + 1) & mask;
        return m_slots[i];
    }

    void grow()
    {
        std::vector<Slot> old(m_slots.size() * 2);
        old.swap(m_slots);
        for (Slot const& slot : old)
            if (slot.isUsed)
                slotOf(slot.key) = slot;
    }

    std::vector<Slot> m_slots;
    std::size_t m_count = 0;
};

/// Spreads the bits of a value over 64 bits.
inline std::uint64_t mixBits(std::uint64_t value)
{
    value ^= value >> 32;
    value *= 0x9e3779b97f4a7c15u;
    value ^= value >> 29;
    value *= 0xbf58476d1ce4e5b9u;
    return value ^ (value >> 32);
}
