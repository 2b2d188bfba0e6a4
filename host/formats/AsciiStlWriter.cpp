// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/MeshSource.h"
#include "host/formats/StlWriter.h"
#include "host/formats/TextTokens.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace Formats {
namespace {

constexpr std::size_t blockBytes = 1 << 16;
constexpr std::size_t longestFacet = 512;

/// A name on the one line that the format has for it.
std::string solidName(std::string name)
{
    std::ranges::replace_if(
        name, [](char c) { return static_cast<unsigned char>(c) < 0x20; }, ' ');
    return name;
}

/// The texts of positions that were written lately. A vertex is written about six times, and its
/// neighbours follow one another in most files, so that few positions are turned into digits twice.
class PositionTexts
{
public:
    PositionTexts() : m_entries(entryCount) {}

    /// Puts "x y z", each in the fewest digits that read back as the same number, and returns where
    /// it ends. Needs `room` bytes there.
    char* put(char* place, UPoint3<float> const& position)
    {
        // By the bits: -0 is written with its sign.
        std::uint32_t const x = std::bit_cast<std::uint32_t>(position.X());
        std::uint32_t const y = std::bit_cast<std::uint32_t>(position.Y());
        std::uint32_t const z = std::bit_cast<std::uint32_t>(position.Z());
        Entry& entry = m_entries[placeOf(x, y, z)];
        if (entry.x != x || entry.y != y || entry.z != z || entry.length == 0) {
            entry.x = x;
            entry.y = y;
            entry.z = z;
            fill(entry, position);
        }
        // Always all of it, which is one copy without a branch.
        std::memcpy(place, entry.text, room);
        return place + entry.length;
    }

    /// The longest number has 14 characters, as -1.1754944e-38.
    static constexpr std::size_t room = 48;
    static_assert(room >= 3 * 14 + 2);

private:
    static constexpr int entryBits = 12;
    static constexpr std::size_t entryCount = std::size_t(1) << entryBits;

    struct alignas(64) Entry
    {
        std::uint32_t x = 0;
        std::uint32_t y = 0;
        std::uint32_t z = 0;
        std::uint8_t length = 0;
        char text[room];
    };

    static std::size_t placeOf(std::uint64_t x, std::uint64_t y, std::uint64_t z)
    {
        constexpr std::uint64_t factor = 0x9e3779b97f4a7c15u;
        return std::size_t(((x * factor ^ y) * factor ^ z) * factor >> (64 - entryBits));
    }

    static void fill(Entry& entry, UPoint3<float> const& position)
    {
        char* end = entry.text;
        for (int i = 0; i < 3; ++i) {
            if (i > 0)
                *end++ = ' ';
            end = std::to_chars(end, entry.text + room, position[i]).ptr;
        }
        entry.length = std::uint8_t(end - entry.text);
    }

    std::vector<Entry> m_entries;
};

char* put(char* place, std::string_view text)
{
    std::memcpy(place, text.data(), text.size());
    return place + text.size();
}

/// The two digits of each number below a hundred.
constexpr std::array<char, 200> pairsOfDigits = [] {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = char('0' + i / 10);
        pairs[2 * i + 1] = char('0' + i % 10);
    }
    return pairs;
}();

char* putPair(char* place, std::uint32_t number)
{
    std::memcpy(place, &pairsOfDigits[2 * number], 2);
    return place + 2;
}

/// A number from -1 to 1 with up to six decimals: readers take normals from the corners, so that
/// further digits would only make the file longer.
char* putCosine(char* place, float value)
{
    constexpr std::uint32_t one = 1000000;
    double const size = std::abs(double(value)) * one;
    std::uint32_t millionths = std::uint32_t(size);
    // Halves away from zero.
    millionths += size - millionths >= 0.5;
    if (value < 0 && millionths > 0)
        *place++ = '-';
    *place++ = char('0' + millionths / one);
    millionths %= one;
    if (millionths == 0)
        return place;
    *place++ = '.';
    place = putPair(place, millionths / 10000);
    place = putPair(place, millionths / 100 % 100);
    place = putPair(place, millionths % 100);
    while (place[-1] == '0')
        --place;
    return place;
}

/// Facets one after another, through a block of text.
class FacetWriter
{
public:
    explicit FacetWriter(OutputFile& output) : m_output(output), m_block(blockBytes, '\0') {}

    void write(std::array<UPoint3<float>, 3> const& corners)
    {
        if (m_block.size() - m_filled < longestFacet)
            flush();
        char* const start = m_block.data() + m_filled;
        char* end = put(start, "facet normal");
        UVector3<float> const normal = unitNormal(corners);
        for (int i = 0; i < 3; ++i) {
            *end++ = ' ';
            end = putCosine(end, normal[i]);
        }
        end = put(end, "\nouter loop\n");
        for (UPoint3<float> const& corner : corners) {
            end = put(end, "vertex ");
            end = m_positions.put(end, corner);
            *end++ = '\n';
        }
        end = put(end, "endloop\nendfacet\n");
        m_filled += std::size_t(end - start);
    }

    void flush()
    {
        m_output.write(std::string_view(m_block).substr(0, m_filled));
        m_filled = 0;
    }

private:
    OutputFile& m_output;
    std::string m_block;
    std::size_t m_filled = 0;
    PositionTexts m_positions;
};

}  // namespace

void writeAsciiStl(OutputFile& output, std::span<NamedMesh const> parts, Progress const& progress)
{
    StepProgress steps(progress, totalTriangles(parts));
    FacetWriter facets(output);
    for (NamedMesh const& part : parts) {
        MeshSource const mesh(*part.kernel);
        std::string const name = solidName(part.name);
        output.write("solid " + name + "\n");
        for (std::size_t i = 0; i < mesh.triangleCount(); ++i) {
            steps.step();
            mesh.prefetch(i);
            facets.write(mesh.corners(i));
        }
        facets.flush();
        output.write("endsolid " + name + "\n");
    }
}

}  // namespace Formats
