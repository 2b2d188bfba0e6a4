// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/Deflate.h"
#include "host/formats/PrefixCode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <vector>
#include <zlib.h>

namespace {

using Formats::deflated;

/// What zlib makes of a raw deflate stream; empty with a failure if it refuses the stream.
std::string inflated(std::string const& packed, std::size_t size)
{
    z_stream stream{};
    EXPECT_EQ(inflateInit2(&stream, -MAX_WBITS), Z_OK);
    std::string text(size + 1, '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    stream.avail_in = uInt(packed.size());
    stream.next_out = reinterpret_cast<Bytef*>(text.data());
    stream.avail_out = uInt(text.size());
    int const status = inflate(&stream, Z_FINISH);
    EXPECT_EQ(status, Z_STREAM_END) << (stream.msg ? stream.msg : "");
    EXPECT_EQ(stream.avail_in, 0u);
    text.resize(text.size() - stream.avail_out);
    inflateEnd(&stream);
    return text;
}

std::string made(std::size_t size, std::function<char()> const& next)
{
    std::string text;
    while (text.size() < size)
        text += next();
    return text;
}

std::string lines(int count)
{
    std::mt19937 random(3);
    std::string text;
    for (int i = 0; i < count; ++i)
        text += "<triangle v1=\"" + std::to_string(i) + "\" v2=\"" + std::to_string(i + 1) +
                "\" v3=\"" + std::to_string(random() % 100000) + "\"/>\n";
    return text;
}

/// Bytes of which each comes half as often as the one before: their codes would be longer than
/// deflate has them.
std::string halvingBytes()
{
    std::string text;
    for (unsigned i = 0; i < 22; ++i)
        text.append(std::size_t(1) << (21 - i), char('a' + i));
    std::mt19937 random(5);
    std::shuffle(text.begin(), text.end(), random);
    return text;
}

/// A word that comes again after so many bytes of another kind.
std::string repeatedAfter(std::size_t distance)
{
    std::string const word = "a word to be found";
    return word + std::string(distance - word.size(), 'x') + word;
}

std::vector<std::string> texts()
{
    std::mt19937 random(1);
    return {"",
            "a",
            "ab",
            "abcabcabcabcabc",
            std::string(1, '\0'),
            std::string(300'000, 'x'),
            made(100'000, [&] { return char(random()); }),
            made(100'000, [&] { return char(random() % 10 + '0'); }),
            made(200'000, [&] { return random() % 50 ? '0' : '1'; }),
            lines(20'000),
            halvingBytes(),
            repeatedAfter(Formats::deflateReach - 1),
            repeatedAfter(Formats::deflateReach),
            repeatedAfter(Formats::deflateReach + 1)};
}

}  // namespace

TEST(Deflate, IsReadBackByZlib)
{
    for (std::string const& text : texts())
        EXPECT_TRUE(inflated(deflated({}, text, true), text.size()) == text)
            << text.size() << " bytes";
}

// Each piece refers to the one before, which has gone when it is packed.
TEST(Deflate, ContinuesFromPieceToPiece)
{
    for (std::size_t const pieceSize : {1u, 7u, 4096u, 40'000u, 262'144u})
        for (std::string const& text : texts()) {
            if (text.size() / pieceSize > 10'000)
                continue;
            std::string packed, before;
            std::size_t place = 0;
            do {
                std::string const piece = text.substr(place, pieceSize);
                place += piece.size();
                packed += deflated(before, piece, place == text.size());
                before = piece;
            } while (place < text.size());
            EXPECT_TRUE(inflated(packed, text.size()) == text)
                << text.size() << " bytes by " << pieceSize;
        }
}

TEST(Deflate, LeavesAFourthOfLinesThatResembleEachOther)
{
    std::string const text = lines(20'000);
    EXPECT_LT(deflated({}, text, true).size(), text.size() / 4);
}

TEST(Deflate, LeavesBytesOfChanceHardlyLonger)
{
    std::mt19937 random(1);
    std::string const text = made(100'000, [&] { return char(random()); });
    EXPECT_LT(deflated({}, text, true).size(), text.size() * 101 / 100);
}

// Kraft's sum is exactly one: no code is the beginning of another, and none is wasted.
TEST(PrefixCode, UsesAllCodesUpToItsLimit)
{
    std::mt19937 random(2);
    for (int round = 0; round < 200; ++round) {
        std::vector<std::uint32_t> counts(2 + random() % 280);
        for (std::uint32_t& count : counts)
            count = random() % 3 == 0 ? 0 : std::uint32_t(1) << random() % 28;
        unsigned const limit = 9 + random() % 7;
        Formats::PrefixCode const code(counts, limit);
        std::uint32_t sum = 0;
        for (std::size_t i = 0; i < code.size(); ++i) {
            ASSERT_LE(code.length(i), limit);
            if (counts[i] > 0) {
                ASSERT_GT(code.length(i), 0u);
            }
            if (code.length(i) > 0)
                sum += 1u << (limit - code.length(i));
        }
        EXPECT_EQ(sum, 1u << limit);
    }
}
