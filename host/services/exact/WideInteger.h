// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace Exact {

__extension__ using DoubleWord = __int128;
__extension__ using UnsignedDoubleWord = unsigned __int128;

/// A sum with the carry of the words below, and its own.
constexpr std::uint64_t addWords(std::uint64_t a, std::uint64_t b, bool& carry)
{
    std::uint64_t sum = 0;
    bool const first = __builtin_add_overflow(a, b, &sum);
    bool const second = __builtin_add_overflow(sum, std::uint64_t(carry), &sum);
    carry = first || second;
    return sum;
}

constexpr std::uint64_t subtractWords(std::uint64_t a, std::uint64_t b, bool& borrow)
{
    std::uint64_t difference = 0;
    bool const first = __builtin_sub_overflow(a, b, &difference);
    bool const second = __builtin_sub_overflow(difference, std::uint64_t(borrow), &difference);
    borrow = first || second;
    return difference;
}

/// A signed integer of a fixed number of words of 64 bits, in two's complement, without memory of
/// its own to ask for. Sums wrap around; a product has the words of both factors and is never cut.
template <std::size_t words>
class WideInteger
{
public:
    using Words = std::array<std::uint64_t, words>;

    constexpr WideInteger() : m_words{} {}
    constexpr explicit WideInteger(Words const& low_first) : m_words(low_first) {}
    constexpr explicit WideInteger(DoubleWord value) : m_words{}
    {
        // Not as a loop of shifts, which GCC 12 vectorizes to something else.
        m_words.fill(value < 0 ? ~std::uint64_t(0) : 0);
        m_words[0] = std::uint64_t(value);
        if constexpr (words > 1)
            m_words[1] = std::uint64_t(value >> 64);
    }

    /// The lowest word first.
    constexpr Words const& wordsLowFirst() const { return m_words; }

    constexpr bool isNegative() const { return m_words[words - 1] >> 63 != 0; }

    constexpr int sign() const
    {
        if (isNegative())
            return -1;
        std::uint64_t any = 0;
        for (std::uint64_t const word : m_words)
            any |= word;
        return any != 0;
    }

    friend constexpr WideInteger operator+(WideInteger const& a, WideInteger const& b)
    {
        WideInteger sum;
        bool carry = false;
        for (std::size_t i = 0; i < words; ++i)
            sum.m_words[i] = addWords(a.m_words[i], b.m_words[i], carry);
        return sum;
    }

    friend constexpr WideInteger operator-(WideInteger const& a, WideInteger const& b)
    {
        WideInteger difference;
        bool borrow = false;
        for (std::size_t i = 0; i < words; ++i)
            difference.m_words[i] = subtractWords(a.m_words[i], b.m_words[i], borrow);
        return difference;
    }

    constexpr WideInteger operator-() const { return WideInteger() - *this; }

private:
    Words m_words;
};

template <std::size_t a, std::size_t b>
constexpr WideInteger<a + b> operator*(WideInteger<a> const& x, WideInteger<b> const& y)
{
    auto const& p = x.wordsLowFirst();
    auto const& q = y.wordsLowFirst();
    std::array<std::uint64_t, a + b> product{};
    for (std::size_t i = 0; i < a; ++i) {
        UnsignedDoubleWord carry = 0;
        for (std::size_t j = 0; j < b; ++j) {
            carry += UnsignedDoubleWord(p[i]) * q[j] + product[i + j];
            product[i + j] = std::uint64_t(carry);
            carry >>= 64;
        }
        product[i + b] = std::uint64_t(carry);
    }
    // A negative factor was taken for one that is larger by two to the power of its bits.
    auto const takeOff = [&](auto const& factor, std::size_t from) {
        bool borrow = false;
        for (std::size_t i = 0; i < factor.size(); ++i)
            product[from + i] = subtractWords(product[from + i], factor[i], borrow);
    };
    if (x.isNegative())
        takeOff(q, a);
    if (y.isNegative())
        takeOff(p, b);
    return WideInteger<a + b>(product);
}

}  // namespace Exact
