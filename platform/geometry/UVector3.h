// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>

/// A direction or displacement; three packed components, no hidden state.
template <typename T>
class UVector3
{
public:
    constexpr UVector3() = default;
    constexpr UVector3(T x, T y, T z) : m_c{x, y, z} {}

    constexpr T& X() { return m_c[0]; }
    constexpr T& Y() { return m_c[1]; }
    constexpr T& Z() { return m_c[2]; }
    constexpr T X() const { return m_c[0]; }
    constexpr T Y() const { return m_c[1]; }
    constexpr T Z() const { return m_c[2]; }
    constexpr T& operator[](int i) { return m_c[i]; }
    constexpr T operator[](int i) const { return m_c[i]; }

    constexpr UVector3 operator+(UVector3 const& o) const
    {
        return {m_c[0] + o.m_c[0], m_c[1] + o.m_c[1], m_c[2] + o.m_c[2]};
    }
    constexpr UVector3 operator-(UVector3 const& o) const
    {
        return {m_c[0] - o.m_c[0], m_c[1] - o.m_c[1], m_c[2] - o.m_c[2]};
    }
    constexpr UVector3 operator-() const { return {-m_c[0], -m_c[1], -m_c[2]}; }
    constexpr UVector3 operator*(T s) const { return {m_c[0] * s, m_c[1] * s, m_c[2] * s}; }
    constexpr UVector3 operator/(T s) const { return {m_c[0] / s, m_c[1] / s, m_c[2] / s}; }
    constexpr UVector3& operator+=(UVector3 const& o) { return *this = *this + o; }
    constexpr UVector3& operator-=(UVector3 const& o) { return *this = *this - o; }

    /// Cross product.
    constexpr UVector3 operator*(UVector3 const& o) const
    {
        return {m_c[1] * o.m_c[2] - m_c[2] * o.m_c[1], m_c[2] * o.m_c[0] - m_c[0] * o.m_c[2],
                m_c[0] * o.m_c[1] - m_c[1] * o.m_c[0]};
    }

    /// Dot product.
    constexpr T operator|(UVector3 const& o) const
    {
        return m_c[0] * o.m_c[0] + m_c[1] * o.m_c[1] + m_c[2] * o.m_c[2];
    }
    constexpr T Dot(UVector3 const& o) const { return *this | o; }

    T GetLength() const { return std::sqrt(*this | *this); }

    /// Scales in place to unit length; the zero vector stays as it is.
    UVector3& Normalize()
    {
        T const length = GetLength();
        if (length > T(0))
            *this = *this / length;
        return *this;
    }

    constexpr bool operator==(UVector3 const&) const = default;

private:
    T m_c[3] = {};
};

static_assert(sizeof(UVector3<float>) == 3 * sizeof(float));
