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
constexpr std::size_t pieceBytes = 1 << 17;
/// About what a facet takes.
constexpr std::size_t usualFacetBytes = 200;

bool isSpace(char c)
{
    return c == ' ' || c == '\t';
}

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

bool scanFacet(Scanner& scanner, Facet& corners)
{
    if (!scanner.text("facet normal"))
        return false;
    for (int i = 0; i < 3; ++i)
        if (!scanner.word())
            return false;
    if (!scanner.endOfLine() || !scanner.text("outer loop") || !scanner.endOfLine())
        return false;
    for (int i = 0; i < 3; ++i) {
        if (!scanner.text("vertex"))
            return false;
        for (int axis = 0; axis < 3; ++axis)
            if (!scanner.number(corners[i][axis]))
                return false;
        if (!scanner.endOfLine())
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
    Facet facet;
    while (scanFacet(scanner, facet)) {
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
