// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

/// Four values that are compared at once. Comparisons give -1 for true and 0 for false.
using FloatLanes = float __attribute__((vector_size(16)));
using IntLanes = std::int32_t __attribute__((vector_size(16)));

inline FloatLanes loadFloats(float const* values)
{
    FloatLanes lanes;
    std::memcpy(&lanes, values, sizeof lanes);
    return lanes;
}

inline IntLanes loadInts(std::uint32_t const* values)
{
    IntLanes lanes;
    std::memcpy(&lanes, values, sizeof lanes);
    return lanes;
}

/// Lane by lane the larger value; the second where one is no number.
inline FloatLanes largerLanes(FloatLanes a, FloatLanes b)
{
#ifdef __SSE2__
    return FloatLanes(_mm_max_ps(__m128(a), __m128(b)));
#else
    return a > b ? a : b;
#endif
}

/// Lane by lane the smaller value; the second where one is no number.
inline FloatLanes smallerLanes(FloatLanes a, FloatLanes b)
{
#ifdef __SSE2__
    return FloatLanes(_mm_min_ps(__m128(a), __m128(b)));
#else
    return a < b ? a : b;
#endif
}

/// Bit i is set if lane i is true.
inline std::uint32_t bitsOf(IntLanes lanes)
{
#ifdef __SSE2__
    return std::uint32_t(_mm_movemask_ps(_mm_castsi128_ps(__m128i(lanes))));
#else
    return (lanes[0] & 1) | (lanes[1] & 2) | (lanes[2] & 4) | (lanes[3] & 8);
#endif
}
