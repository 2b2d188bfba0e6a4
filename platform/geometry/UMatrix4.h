// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>

/// A 4x4 matrix in OpenGL's order: 16 consecutive values, column after column, so that entries 12,
/// 13 and 14 are the translation. Default: identity.
template <typename T>
class UMatrix4
{
public:
    constexpr UMatrix4() : m_m{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1} {}
    explicit constexpr UMatrix4(T const* values) { std::copy_n(values, 16, m_m); }

    constexpr T const* data() const { return m_m; }
    constexpr T* data() { return m_m; }
    constexpr T operator()(int row, int column) const { return m_m[column * 4 + row]; }
    constexpr T& operator()(int row, int column) { return m_m[column * 4 + row]; }

    constexpr bool isIdentity() const { return *this == UMatrix4(); }

    /// The matrix that applies `right` first and then this one.
    constexpr UMatrix4 operator*(UMatrix4 const& right) const
    {
        UMatrix4 product;
        for (int row = 0; row < 4; ++row)
            for (int column = 0; column < 4; ++column) {
                T sum = 0;
                for (int k = 0; k < 4; ++k)
                    sum += (*this)(row, k) * right(k, column);
                product(row, column) = sum;
            }
        return product;
    }

    /// Determinant of the upper 3x3 block; negative for a reflection.
    constexpr T linearDeterminant() const
    {
        UMatrix4 const& m = *this;
        return m(0, 0) * (m(1, 1) * m(2, 2) - m(1, 2) * m(2, 1)) -
               m(0, 1) * (m(1, 0) * m(2, 2) - m(1, 2) * m(2, 0)) +
               m(0, 2) * (m(1, 0) * m(2, 1) - m(1, 1) * m(2, 0));
    }

    constexpr bool operator==(UMatrix4 const&) const = default;

private:
    T m_m[16];
};
