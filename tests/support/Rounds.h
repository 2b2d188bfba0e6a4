// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

/// How much of the many alike is tried. Under sanitizers everything takes ten times as long and more,
/// and one input of a kind shows as much there: tests make fewer rounds, of the same inputs.

#if defined(MELL_ADDRESS_SANITIZER) || defined(MELL_THREAD_SANITIZER)
inline constexpr bool isUnderSanitizers = true;
#else
inline constexpr bool isUnderSanitizers = false;
#endif

/// Each how manieth is tried. A prime, so that in nested loops every case of each loop has its turn.
inline constexpr std::size_t roundStride = isUnderSanitizers ? 11 : 1;

/// The number of rounds to make instead of `all`; one at least.
constexpr int rounds(int all)
{
    int const few = all / int(roundStride);
    return few > 0 ? few : 1;
}

/// Whether the case with a number, counted from 0 through all loops, is tried.
constexpr bool isTried(std::size_t number)
{
    return number % roundStride == 0;
}

/// How fine a made model is that is to be large: not very under sanitizers.
constexpr int fineness(int all)
{
    return isUnderSanitizers ? all / 4 : all;
}
