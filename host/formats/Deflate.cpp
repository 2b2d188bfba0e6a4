// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/Deflate.h"

#include "host/formats/PrefixCode.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

namespace Formats {
namespace {

/// Shorter ones, which deflate has too, are a few digits as a rule, and take no fewer bits.
constexpr std::size_t shortestMatch = 6;
constexpr std::size_t longestMatch = 258;
/// Lengths are told from this one on.
constexpr std::size_t firstLength = 3;
/// Of what stands before, which is looked through for each piece.
constexpr std::size_t mostBefore = 1 << 12;
/// Few, so that a place that is far back is soon forgotten: there, digits match by chance, for more
/// bits than they would take as they are.
constexpr unsigned hashBits = 10;
constexpr std::size_t tokensPerBlock = 1 << 16;
/// A match has 48 bits at most; a block's head has a code of 19 symbols and what it spells.
constexpr std::size_t mostTokenBytes = 6;
constexpr std::size_t mostHeadBytes = 1024;

constexpr std::size_t endOfBlock = 256;
constexpr std::size_t firstLengthSymbol = 257;
constexpr std::size_t literalSymbols = 286;
constexpr std::size_t distanceSymbols = 30;
constexpr unsigned longestCode = 15;
constexpr unsigned longestLengthCode = 7;

/// A number as a symbol and the bits that follow it.
struct Spelling
{
    std::uint8_t symbol;
    std::uint8_t extraBits;
    std::uint16_t extra;
};

/// Numbers from 0 on: one symbol each for the first `plain`, then two or four, `plain / 2`, for each
/// number of extra bits.
constexpr Spelling spellingOf(std::uint32_t number, std::uint32_t plain)
{
    std::uint32_t const perStep = plain / 2;
    if (number < plain)
        return {std::uint8_t(number), 0, 0};
    auto const bits = std::uint32_t(std::bit_width(number / plain));
    std::uint32_t const symbol = perStep * (bits + 1) + ((number >> bits) - perStep);
    return {std::uint8_t(symbol), std::uint8_t(bits),
            std::uint16_t(number & ((std::uint32_t(1) << bits) - 1))};
}

constexpr Spelling spellingOfLength(std::size_t length)
{
    // The longest has a symbol of its own.
    return length == longestMatch ? Spelling{28, 0, 0}
                                  : spellingOf(std::uint32_t(length - firstLength), 8);
}

constexpr Spelling spellingOfDistance(std::size_t distance)
{
    return spellingOf(std::uint32_t(distance - 1), 4);
}

constexpr auto lengthSpellings = [] {
    std::array<Spelling, longestMatch + 1> spellings{};
    for (std::size_t length = firstLength; length <= longestMatch; ++length)
        spellings[length] = spellingOfLength(length);
    return spellings;
}();

/// A byte, with length 0, or a match.
struct Token
{
    std::uint16_t length;
    /// The byte, or the distance less one.
    std::uint16_t value;
};

/// The bytes of a shortest match, as a number.
std::uint64_t bytesAt(char const* place)
{
    std::uint32_t four;
    std::uint16_t two;
    static_assert(shortestMatch == sizeof four + sizeof two);
    std::memcpy(&four, place, sizeof four);
    std::memcpy(&two, place + sizeof four, sizeof two);
    return std::uint64_t(two) << 32 | four;
}

std::size_t commonLength(char const* a, char const* b, std::size_t most)
{
    std::size_t length = 0;
    for (; length + 8 <= most; length += 8) {
        std::uint64_t x, y;
        std::memcpy(&x, a + length, 8);
        std::memcpy(&y, b + length, 8);
        if (x != y)
            break;
    }
    while (length < most && a[length] == b[length])
        ++length;
    return length;
}

class BitWriter
{
public:
    explicit BitWriter(std::string& out) : m_out(out), m_size(out.size()) {}

    /// Makes room for so many bytes more, without which put() must not be called.
    void reserve(std::size_t bytes)
    {
        std::size_t const needed = m_size + bytes + sizeof m_bits;
        if (m_out.size() < needed)
            m_out.resize(std::max(needed, m_out.size() * 2));
    }

    /// At most 56 bits, the lowest first.
    void put(std::uint64_t bits, unsigned count)
    {
        std::uint64_t const all = m_bits | bits << m_count;
        char* const place = m_out.data() + m_size;
        for (unsigned i = 0; i < sizeof all; ++i)
            place[i] = char(all >> 8 * i);
        unsigned const held = m_count + count;
        m_size += held / 8;
        m_bits = all >> (held & ~7u);
        m_count = held & 7;
    }

    /// Ends at a whole byte, and leaves no room that is not needed.
    void finish()
    {
        m_size += m_count > 0;
        m_count = 0;
        m_bits = 0;
        m_out.resize(m_size);
    }

private:
    std::string& m_out;
    std::size_t m_size;
    /// Up to seven that do not fill a byte yet.
    std::uint64_t m_bits = 0;
    unsigned m_count = 0;
};

/// The lengths of both codes in the form in which a block begins with them.
class CodeLengths
{
public:
    CodeLengths(PrefixCode const& literals, PrefixCode const& distances)
        : m_literals(std::max(literals.usedSize(), firstLengthSymbol)),
          m_distances(std::max<std::size_t>(distances.usedSize(), 1))
    {
        for (std::size_t i = 0; i < m_literals; ++i)
            add(literals.length(i));
        for (std::size_t i = 0; i < m_distances; ++i)
            add(distances.length(i));
        addRun();
    }

    void write(BitWriter& out) const
    {
        constexpr std::array<std::uint8_t, 19> order{16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                                     11, 4,  12, 3, 13, 2, 14, 1, 15};
        std::array<std::uint32_t, 19> counts{};
        for (Item const& item : m_items)
            ++counts[item.symbol];
        PrefixCode const code(counts, longestLengthCode);
        std::size_t used = order.size();
        while (used > 4 && code.length(order[used - 1]) == 0)
            --used;
        out.put(std::uint32_t(m_literals - firstLengthSymbol), 5);
        out.put(std::uint32_t(m_distances - 1), 5);
        out.put(std::uint32_t(used - 4), 4);
        for (std::size_t i = 0; i < used; ++i)
            out.put(code.length(order[i]), 3);
        for (Item const& item : m_items) {
            out.put(code.bits(item.symbol), code.length(item.symbol));
            out.put(item.extra, item.extraBits);
        }
    }

private:
    struct Item
    {
        std::uint8_t symbol;
        std::uint8_t extraBits;
        std::uint8_t extra;
    };

    void add(unsigned length)
    {
        if (m_runCount > 0 && length != m_runOf)
            addRun();
        m_runOf = length;
        ++m_runCount;
    }

    /// Lengths as they are, or a symbol for many that are alike.
    void addRun()
    {
        if (m_runOf != 0) {
            m_items.push_back({std::uint8_t(m_runOf), 0, 0});
            --m_runCount;
        }
        while (m_runCount > 0) {
            std::uint32_t const most = m_runOf != 0 ? 6 : 138;
            std::uint32_t const count = std::min(m_runCount, most);
            m_runCount -= count;
            if (count < 3)
                m_items.insert(m_items.end(), count, {std::uint8_t(m_runOf), 0, 0});
            else if (m_runOf != 0)
                m_items.push_back({16, 2, std::uint8_t(count - 3)});
            else if (count <= 10)
                m_items.push_back({17, 3, std::uint8_t(count - 3)});
            else
                m_items.push_back({18, 7, std::uint8_t(count - 11)});
        }
    }

    std::size_t m_literals;
    std::size_t m_distances;
    unsigned m_runOf = 0;
    std::uint32_t m_runCount = 0;
    std::vector<Item> m_items;
};

/// A block with codes of its own, filled token by token.
class Block
{
public:
    /// textSize  of what is to come, if that is known to be little
    explicit Block(std::size_t textSize) { m_tokens.reserve(std::min(textSize, tokensPerBlock)); }

    bool isFull() const { return m_tokens.size() == tokensPerBlock; }

    void addByte(char byte)
    {
        m_tokens.push_back({0, std::uint8_t(byte)});
        ++m_literalCounts[std::uint8_t(byte)];
    }

    void addMatch(std::size_t length, std::size_t distance)
    {
        m_tokens.push_back({std::uint16_t(length), std::uint16_t(distance - 1)});
        ++m_literalCounts[firstLengthSymbol + lengthSpellings[length].symbol];
        ++m_distanceCounts[spellingOfDistance(distance).symbol];
    }

    /// Writes what there is, and begins anew.
    void write(BitWriter& out, bool isLast)
    {
        m_literalCounts[endOfBlock] = 1;
        PrefixCode const literals(m_literalCounts, longestCode);
        PrefixCode const distances(m_distanceCounts, longestCode);
        out.reserve(m_tokens.size() * mostTokenBytes + mostHeadBytes);
        out.put(isLast ? 1 : 0, 1);
        out.put(2, 2);
        CodeLengths(literals, distances).write(out);
        for (Token const& token : m_tokens) {
            if (token.length == 0) {
                out.put(literals.bits(token.value), literals.length(token.value));
                continue;
            }
            Bits const length = spelled(lengthSpellings[token.length], literals, firstLengthSymbol);
            Bits const distance =
                spelled(spellingOfDistance(std::size_t(token.value) + 1), distances, 0);
            out.put(length.bits | distance.bits << length.count, length.count + distance.count);
        }
        out.put(literals.bits(endOfBlock), literals.length(endOfBlock));
        m_tokens.clear();
        m_literalCounts.fill(0);
        m_distanceCounts.fill(0);
    }

private:
    struct Bits
    {
        std::uint64_t bits;
        unsigned count;
    };

    static Bits spelled(Spelling const& spelling, PrefixCode const& code, std::size_t firstSymbol)
    {
        std::size_t const symbol = firstSymbol + spelling.symbol;
        unsigned const length = code.length(symbol);
        return {code.bits(symbol) | std::uint64_t(spelling.extra) << length,
                length + spelling.extraBits};
    }

    std::vector<Token> m_tokens;
    std::array<std::uint32_t, literalSymbols> m_literalCounts{};
    std::array<std::uint32_t, distanceSymbols> m_distanceCounts{};
};

/// Where the bytes of a shortest match came last.
class LastPlaces
{
public:
    LastPlaces() : m_places(std::size_t(1) << hashBits, nowhere) {}

    /// Notes a place for its bytes and returns the one before, which may have others.
    std::uint32_t exchange(std::uint64_t bytes, std::size_t place)
    {
        return std::exchange(m_places[bytes * 0x9e3779b97f4a7c15u >> (64 - hashBits)],
                             std::uint32_t(place));
    }

    static constexpr std::uint32_t nowhere = std::numeric_limits<std::uint32_t>::max();

private:
    std::vector<std::uint32_t> m_places;
};

}  // namespace

std::string deflated(std::string_view before, std::string_view text, bool isLast)
{
    before.remove_prefix(before.size() - std::min(before.size(), mostBefore));
    std::string all;
    all.reserve(before.size() + text.size());
    all.append(before).append(text);
    std::string packed;
    BitWriter out(packed);
    Block block(text.size());
    LastPlaces last;
    std::size_t place = 0;
    for (; place < before.size() && place + shortestMatch <= all.size(); ++place)
        last.exchange(bytesAt(all.data() + place), place);
    place = before.size();
    while (place < all.size()) {
        if (block.isFull())
            block.write(out, false);
        std::size_t length = 0, other = 0;
        if (place + shortestMatch <= all.size()) {
            std::uint64_t const bytes = bytesAt(all.data() + place);
            other = last.exchange(bytes, place);
            if (other != LastPlaces::nowhere && place - other <= deflateReach &&
                bytesAt(all.data() + other) == bytes)
                length = shortestMatch +
                         commonLength(all.data() + other + shortestMatch,
                                      all.data() + place + shortestMatch,
                                      std::min(longestMatch, all.size() - place) - shortestMatch);
        }
        if (length == 0) {
            block.addByte(all[place++]);
            continue;
        }
        block.addMatch(length, place - other);
        place += length;
    }
    block.write(out, isLast);
    // An empty block without codes ends at a whole byte.
    if (!isLast)
        out.put(0, 3);
    out.finish();
    if (!isLast)
        packed.append("\0\0\xff\xff", 4);
    return packed;
}

}  // namespace Formats
