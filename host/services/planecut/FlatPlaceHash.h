// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/FlatMap.h"

#include <array>
#include <bit>

/// For places in a plane as keys; both zeros are one.
struct FlatPlaceHash
{
    std::uint64_t operator()(std::array<double, 2> const& p) const
    {
        // Adding zero gives both zeros the same bits.
        return mixBits(mixBits(std::bit_cast<std::uint64_t>(p[0] + 0.0)) +
                       std::bit_cast<std::uint64_t>(p[1] + 0.0));
    }
};
