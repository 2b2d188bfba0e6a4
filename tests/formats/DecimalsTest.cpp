// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/Decimals.h"
#include "tests/support/Rounds.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>

using namespace Formats;

namespace {

/// What the standard library reads is what is expected: the number's bits, the end, the error.
void expectAsStandard(std::string const& text)
{
    float value = 7, expected = 7;
    auto const taken = fromDecimal(text.data(), text.data() + text.size(), value);
    auto const standard = std::from_chars(text.data(), text.data() + text.size(), expected);
    ASSERT_EQ(taken.ptr - text.data(), standard.ptr - text.data()) << text;
    ASSERT_EQ(taken.ec, standard.ec) << text;
    ASSERT_EQ(std::bit_cast<std::uint32_t>(value), std::bit_cast<std::uint32_t>(expected)) << text;
}

std::string printed(char const* format, int digits, double value)
{
    char text[512];
    std::snprintf(text, sizeof text, format, digits, value);
    return text;
}

float randomFloat(std::mt19937& random)
{
    return std::ldexp(float(random()) - 0x1p31f, int(random() % 80) - 70);
}

}  // namespace

TEST(Decimals, AreReadAsTheStandardLibraryReadsThem)
{
    std::mt19937 random(7);
    int const count = rounds(20000);
    for (int i = 0; i < count; ++i) {
        int const digits = int(random() % 20);
        for (char const* const format : {"%.*e", "%.*f", "%.*g"})
            expectAsStandard(printed(format, digits, double(randomFloat(random))));
    }
}

/// The nearest double of such a number may lie in the middle, and tell nothing of the side.
TEST(Decimals, BesideTheMiddleOfTwoFloatsAreRoundedToTheNearer)
{
    std::mt19937 random(8);
    int const count = rounds(5000);
    for (int i = 0; i < count; ++i) {
        float const value = float(1 + random() % 1000000) / float(1 << random() % 10);
        double const middle = (double(value) + double(std::nextafter(value, HUGE_VALF))) / 2;
        for (int const digits : {12, 13, 14, 15, 16, 17, 18, 25})
            for (double const beside :
                 {std::nextafter(middle, 0.0), middle, std::nextafter(middle, HUGE_VAL)})
                expectAsStandard(printed("%.*g", digits, beside));
    }
}

TEST(Decimals, OfUnusualFormsAreLeftToTheStandardLibrary)
{
    for (std::string const text : {"",
                                   "-",
                                   "+1",
                                   ".5",
                                   "-.5",
                                   "5.",
                                   "5.e3",
                                   "1e",
                                   "1e+",
                                   "1e-x",
                                   "1.5.2",
                                   "0",
                                   "-0",
                                   "-0.0e9",
                                   "00012",
                                   "1E5",
                                   "1e+07",
                                   "1e99",
                                   "-1e99",
                                   "1e-60",
                                   "1e-40",
                                   "1e00003",
                                   "1e000003",
                                   "1e99999999999",
                                   "nan",
                                   "inf",
                                   "-inf",
                                   "0x1p3",
                                   "12 34",
                                   "1,5",
                                   "16777217",
                                   "1e22",
                                   "1e23",
                                   "1e-22",
                                   "1e-23",
                                   "3.4028235e38",
                                   "3.5e38",
                                   "1.2e-38",
                                   "1e-30",
                                   "1e30",
                                   "--1",
                                   "123456789012345678901234567890",
                                   "9007199254740993",
                                   "9007199254740991",
                                   "0.000000000000000000000000000001"})
        expectAsStandard(text);
}
