// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/FlatMap.h"
#include "platform/geometry/UPoint3.h"

#include <array>
#include <bit>
#include <cstdint>

/// The float coordinates of a point as bits; both zeros are one.
using PlaceKey = std::array<std::uint32_t, 3>;

inline PlaceKey placeKey(UPoint3<float> const& p)
{
    return {std::bit_cast<std::uint32_t>(p.X() + 0.0f), std::bit_cast<std::uint32_t>(p.Y() + 0.0f),
            std::bit_cast<std::uint32_t>(p.Z() + 0.0f)};
}

struct PlaceHash
{
    std::uint64_t operator()(PlaceKey const& k) const
    {
        return mixBits(mixBits(std::uint64_t(k[0]) << 32 | k[1]) + k[2]);
    }
};

/// Points by their float coordinates.
using PointsByPlace = FlatMap<PlaceKey, PlaceHash>;
