// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UMatrix4.h"
#include "platform/geometry/UVector3.h"

/// A position; three packed components, so a vector of points is one array of coordinates.
template <typename T>
class UPoint3
{
public:
    constexpr UPoint3() = default;
    constexpr UPoint3(T x, T y, T z) : m_c{x, y, z} {}
    explicit constexpr UPoint3(UVector3<T> const& v) : m_c{v.X(), v.Y(), v.Z()} {}

    constexpr T& X() { return m_c[0]; }
    constexpr T& Y() { return m_c[1]; }
    constexpr T& Z() { return m_c[2]; }
    constexpr T X() const { return m_c[0]; }
    constexpr T Y() const { return m_c[1]; }
    constexpr T Z() const { return m_c[2]; }
    constexpr T& operator[](int i) { return m_c[i]; }
    constexpr T operator[](int i) const { return m_c[i]; }

    constexpr UPoint3 operator+(UVector3<T> const& v) const
    {
        return {m_c[0] + v.X(), m_c[1] + v.Y(), m_c[2] + v.Z()};
    }
    constexpr UPoint3 operator-(UVector3<T> const& v) const
    {
        return {m_c[0] - v.X(), m_c[1] - v.Y(), m_c[2] - v.Z()};
    }
    constexpr UPoint3& operator+=(UVector3<T> const& v) { return *this = *this + v; }
    constexpr UPoint3& operator-=(UVector3<T> const& v) { return *this = *this - v; }

    /// The displacement from the right point to the left one.
    constexpr UVector3<T> operator-(UPoint3 const& o) const
    {
        return {m_c[0] - o.m_c[0], m_c[1] - o.m_c[1], m_c[2] - o.m_c[2]};
    }

    constexpr UPoint3 operator+(UPoint3 const& o) const
    {
        return {m_c[0] + o.m_c[0], m_c[1] + o.m_c[1], m_c[2] + o.m_c[2]};
    }
    constexpr UPoint3 operator*(T s) const { return {m_c[0] * s, m_c[1] * s, m_c[2] * s}; }
    constexpr UPoint3 operator/(T s) const { return {m_c[0] / s, m_c[1] / s, m_c[2] / s}; }

    /// A copy scaled to unit distance from the origin; the origin stays where it is.
    UPoint3 Normalize() const
    {
        UVector3<T> v(m_c[0], m_c[1], m_c[2]);
        return UPoint3(v.Normalize());
    }

    constexpr bool operator==(UPoint3 const&) const = default;

private:
    T m_c[3] = {};
};

static_assert(sizeof(UPoint3<float>) == 3 * sizeof(float));

/// Transforms a point: the linear part, the translation, then the division by w where w is not 1.
template <typename T>
constexpr UPoint3<T> operator*(UMatrix4<T> const& m, UPoint3<T> const& p)
{
    auto const row = [&](int r) {
        return m(r, 0) * p.X() + m(r, 1) * p.Y() + m(r, 2) * p.Z() + m(r, 3);
    };
    UPoint3<T> const moved(row(0), row(1), row(2));
    T const w = row(3);
    return w == T(1) || w == T(0) ? moved : moved / w;
}

/// The same transform, written the other way round.
template <typename T>
constexpr UPoint3<T> operator*(UPoint3<T> const& p, UMatrix4<T> const& m)
{
    return m * p;
}
