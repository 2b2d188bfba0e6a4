// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/AsciiFacets.h"

#include "host/formats/Decimals.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace Formats {
namespace {

/// A thread of its own is worth its start from here on.
constexpr std::size_t pieceBytes = 1 << 19;
/// About what a facet takes.
constexpr std::size_t usualFacetBytes = 200;

bool isSpace(char c)
{
    return c == ' ' || c == '\t';
}

/// The corners of lines that were read lately. A vertex has about six lines, equal to the last byte in the files of
/// nearly all programs, so that few of them are read as numbers twice.
class CornerLines
{
public:
    static constexpr std::size_t longestLine = 48;

    CornerLines() : m_entries(entryCount) {}

    struct Entry
    {
        std::uint32_t length = 0;
        UPoint3<float> corner;
        char text[longestLine];

        bool isOf(std::string_view line) const
        {
            return length == line.size() && std::memcmp(text, line.data(), line.size()) == 0;
        }
        void set(std::string_view line, UPoint3<float> const& read)
        {
            length = std::uint32_t(line.size());
            corner = read;
            std::memcpy(text, line.data(), line.size());
        }
    };

    /// Where a line is if it was met. At least 8 bytes.
    Entry& placeOf(std::string_view line)
    {
        constexpr std::uint64_t factor = 0x9e3779b97f4a7c15u;
        std::uint64_t hash = line.size();
        std::size_t place = 0;
        for (; place + 8 < line.size(); place += 8)
            hash = (hash ^ wordAt(line.data() + place)) * factor;
        hash = (hash ^ wordAt(line.data() + line.size() - 8)) * factor;
        return m_entries[std::size_t(hash >> (64 - entryBits))];
    }

private:
    static constexpr int entryBits = 10;
    static constexpr std::size_t entryCount = std::size_t(1) << entryBits;

    /// The word's upper bits are mixed into its lower ones.
    static std::uint64_t wordAt(char const* place)
    {
        std::uint64_t word = 0;
        std::memcpy(&word, place, sizeof word);
        // The upper half of a product mixes all; the lower only what lies below.
        return word ^ word >> 29;
    }

    std::vector<Entry> m_entries;
};

/// A place in a text that moves forward while what stands there is what was expected.
class Scanner
{
public:
    explicit Scanner(std::string_view text) : m_place(text.data()), m_end(text.data() + text.size())
    {}

    char const* place() const { return m_place; }

    /// Blanks in front of the text, and the text.
    bool text(std::string_view expected)
    {
        blanks();
        if (std::size_t(m_end - m_place) < expected.size() ||
            std::memcmp(m_place, expected.data(), expected.size()) != 0)
            return false;
        m_place += expected.size();
        return true;
    }

    /// A word of any kind, with blanks in front of it.
    bool word()
    {
        if (!blanks())
            return false;
        char const* const start = m_place;
        while (m_place != m_end && static_cast<unsigned char>(*m_place) > ' ')
            ++m_place;
        return m_place != start;
    }

    /// A finite number, with blanks in front of it.
    bool number(float& value)
    {
        if (!blanks())
            return false;
        auto const [end, error] = fromDecimal(m_place, m_end, value);
        if (error != std::errc() || !std::isfinite(value))
            return false;
        m_place = end;
        return true;
    }

    /// From here to the line's end, that included; empty if that is far away.
    std::string_view shortRestOfLine() const
    {
        std::size_t const most = std::min(std::size_t(m_end - m_place), CornerLines::longestLine);
        void const* const end = std::memchr(m_place, '\n', most);
        return {m_place, end ? std::size_t(static_cast<char const*>(end) + 1 - m_place) : 0};
    }
    void skip(std::size_t bytes) { m_place += bytes; }

    bool endOfLine()
    {
        blanks();
        if (m_place != m_end && *m_place == '\r')
            ++m_place;
        return m_place != m_end && *m_place++ == '\n';
    }

private:
    bool blanks()
    {
        char const* const start = m_place;
        while (m_place != m_end && isSpace(*m_place))
            ++m_place;
        return m_place != start;
    }

    char const* m_place;
    char const* m_end;
};

bool scanNumbers(Scanner& scanner, UPoint3<float>& corner)
{
    for (int axis = 0; axis < 3; ++axis)
        if (!scanner.number(corner[axis]))
            return false;
    return scanner.endOfLine();
}

/// What follows the keyword of a corner.
bool scanCorner(Scanner& scanner, CornerLines& lines, UPoint3<float>& corner)
{
    constexpr std::size_t shortestLine = 8;
    std::string_view const line = scanner.shortRestOfLine();
    if (line.size() < shortestLine)
        return scanNumbers(scanner, corner);
    CornerLines::Entry& known = lines.placeOf(line);
    if (known.isOf(line)) {
        corner = known.corner;
        scanner.skip(line.size());
        return true;
    }
    if (!scanNumbers(scanner, corner))
        return false;
    known.set(line, corner);
    return true;
}

bool scanFacet(Scanner& scanner, CornerLines& lines, Facet& corners)
{
    if (!scanner.text("facet normal"))
        return false;
    for (int i = 0; i < 3; ++i)
        if (!scanner.word())
            return false;
    if (!scanner.endOfLine() || !scanner.text("outer loop") || !scanner.endOfLine())
        return false;
    for (int i = 0; i < 3; ++i) {
        if (!scanner.text("vertex") || !scanCorner(scanner, lines, corners[i]))
            return false;
    }
    return scanner.text("endloop") && scanner.endOfLine() && scanner.text("endfacet") &&
           scanner.endOfLine();
}

AsciiFacets scanPiece(std::string_view text)
{
    AsciiFacets taken;
    taken.facets.reserve(text.size() / usualFacetBytes);
    Scanner scanner(text);
    CornerLines lines;
    Facet facet;
    while (scanFacet(scanner, lines, facet)) {
        taken.facets.push_back(facet);
        taken.bytes = std::size_t(scanner.place() - text.data());
    }
    return taken;
}

/// Where a text may be divided so that each piece begins with a facet; the last is the text's end.
std::vector<std::size_t> endsOfPieces(std::string_view text)
{
    constexpr std::string_view lastLine = "endfacet";
    std::vector<std::size_t> ends;
    for (std::size_t place = pieceBytes; place < text.size(); place += pieceBytes) {
        place = text.find(lastLine, place);
        if (place == text.npos)
            break;
        place = text.find('\n', place);
        if (place == text.npos)
            break;
        ends.push_back(++place);
    }
    if (ends.empty() || ends.back() != text.size())
        ends.push_back(text.size());
    return ends;
}

}  // namespace

AsciiFacets scanAsciiFacets(std::string_view text)
{
    if (text.size() < 2 * pieceBytes)
        return scanPiece(text);
    std::vector<std::size_t> const ends = endsOfPieces(text);
    std::vector<AsciiFacets> pieces(ends.size());
    auto const startOf = [&](std::size_t piece) { return piece == 0 ? 0 : ends[piece - 1]; };
    using Range = tbb::blocked_range<std::size_t>;
    tbb::parallel_for(Range(0, pieces.size(), 1), [&](Range const& range) {
        for (std::size_t i = range.begin(); i != range.end(); ++i)
            pieces[i] = scanPiece(text.substr(startOf(i), ends[i] - startOf(i)));
    });
    AsciiFacets all;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        // Only what follows without a gap: the words between are not for this reader.
        all.facets.insert(all.facets.end(), pieces[i].facets.begin(), pieces[i].facets.end());
        all.bytes = startOf(i) + pieces[i].bytes;
        if (all.bytes != ends[i])
            break;
    }
    return all;
}

}  // namespace Formats
