// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <algorithm>
#include <limits>

/// An axis-aligned box. The minimum and maximum corners lead, in this order. A null box contains
/// nothing; its corners are the origin, so that code which takes them anyway stays finite.
template <typename T>
class UBox3
{
public:
    UPoint3<T> min;
    UPoint3<T> max;

    constexpr UBox3() = default;
    constexpr UBox3(UPoint3<T> const& low, UPoint3<T> const& high)
        : min(low), max(high), m_isNull(false)
    {}

    constexpr void SetNull() { *this = UBox3(); }
    constexpr bool Isnullptr() const { return m_isNull; }

    /// Grows to include another box. Adding a null box changes nothing.
    constexpr void Add(UBox3 const& other)
    {
        if (other.m_isNull)
            return;
        Add(other.min);
        Add(other.max);
    }

    /// Grows to include a point.
    constexpr void Add(UPoint3<T> const& p)
    {
        if (m_isNull) {
            *this = UBox3(p, p);
            return;
        }
        for (int i = 0; i < 3; ++i) {
            min[i] = std::min(min[i], p[i]);
            max[i] = std::max(max[i], p[i]);
        }
    }

    constexpr T MinX() const { return min.X(); }
    constexpr T MinY() const { return min.Y(); }
    constexpr T MinZ() const { return min.Z(); }
    constexpr T MaxX() const { return max.X(); }
    constexpr T MaxY() const { return max.Y(); }
    constexpr T MaxZ() const { return max.Z(); }

    constexpr bool operator==(UBox3 const&) const = default;

private:
    bool m_isNull = true;
};
