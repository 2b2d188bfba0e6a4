// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// A displacement in a plane.
template <typename T>
class UVector2
{
public:
    constexpr UVector2() = default;
    constexpr UVector2(T x, T y) : m_c{x, y} {}

    constexpr T& X() { return m_c[0]; }
    constexpr T& Y() { return m_c[1]; }
    constexpr T X() const { return m_c[0]; }
    constexpr T Y() const { return m_c[1]; }

    constexpr bool operator==(UVector2 const&) const = default;

private:
    T m_c[2] = {};
};

/// A position in a plane.
template <typename T>
class UPoint2
{
public:
    constexpr UPoint2() = default;
    constexpr UPoint2(T x, T y) : m_c{x, y} {}

    constexpr T& X() { return m_c[0]; }
    constexpr T& Y() { return m_c[1]; }
    constexpr T X() const { return m_c[0]; }
    constexpr T Y() const { return m_c[1]; }

    constexpr UPoint2 operator+(UPoint2 const& o) const
    {
        return {m_c[0] + o.m_c[0], m_c[1] + o.m_c[1]};
    }
    constexpr UPoint2 operator+(UVector2<T> const& v) const
    {
        return {m_c[0] + v.X(), m_c[1] + v.Y()};
    }
    constexpr UVector2<T> operator-(UPoint2 const& o) const
    {
        return {m_c[0] - o.m_c[0], m_c[1] - o.m_c[1]};
    }
    constexpr UPoint2 operator/(T s) const { return {m_c[0] / s, m_c[1] / s}; }

    constexpr bool operator==(UPoint2 const&) const = default;

private:
    T m_c[2] = {};
};
