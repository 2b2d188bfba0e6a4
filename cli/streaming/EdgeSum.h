// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/Facet.h"

#include <bit>
#include <cstdint>

/// Whether the edges of triangles that are gone already pair up: each edge adds a number that its
/// corners choose, and takes the same number away where it is met the other way round. The sum is zero
/// if every edge is met as often one way as the other, and else by a chance of one in 2^64.
class EdgeSum
{
public:
    void add(Formats::Facet const& facet)
    {
        std::uint64_t const a = hashOf(facet[0]), b = hashOf(facet[1]), c = hashOf(facet[2]);
        m_sum += edge(a, b) + edge(b, c) + edge(c, a);
    }
    void add(EdgeSum const& other) { m_sum += other.m_sum; }

    bool isZero() const { return m_sum == 0; }

private:
    static std::uint64_t bitsOf(float coordinate)
    {
        // The sum makes -0 the 0 that it equals.
        return std::bit_cast<std::uint32_t>(coordinate + 0.0f);
    }
    static std::uint64_t hashOf(UPoint3<float> const& p)
    {
        std::uint64_t hash = (bitsOf(p.X()) << 32 | bitsOf(p.Y())) * 0x9e3779b97f4a7c15u;
        hash = ((hash ^ hash >> 32) + bitsOf(p.Z())) * 0xd6e8feb86659fd93u;
        return hash ^ hash >> 32;
    }
    static std::uint64_t edge(std::uint64_t from, std::uint64_t to)
    {
        std::uint64_t const low = from < to ? from : to, high = from < to ? to : from;
        std::uint64_t number = (low ^ std::rotl(high, 29)) * 0xbf58476d1ce4e5b9u;
        number = (number ^ number >> 31) * 0x94d049bb133111ebu;
        number ^= number >> 29;
        return from < to ? number : std::uint64_t(0) - number;
    }

    std::uint64_t m_sum = 0;
};
