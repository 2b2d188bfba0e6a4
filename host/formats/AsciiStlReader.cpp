// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/AsciiStlReader.h"

#include "host/formats/AsciiFacets.h"
#include "host/formats/FileError.h"
#include "host/formats/LineReader.h"
#include "host/formats/MemoryNeed.h"
#include "host/formats/MeshBuilder.h"
#include "host/formats/TextTokens.h"

#include <algorithm>
#include <cmath>

namespace Formats {
namespace {

/// A facet takes at least this much text, which bounds how many there can be.
constexpr std::uint64_t bytesPerFacet = 120;
/// Enough text at a time for several threads.
constexpr std::size_t bufferBytes = std::size_t(1) << 21;

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

bool isKeyword(std::string_view word, std::string_view keyword)
{
    return std::ranges::equal(word, keyword, {}, lower);
}

// What is expected in more than one place.
constexpr char const* facetOrEnd = QT_TRANSLATE_NOOP("FileError", "'facet' or 'endsolid'");
constexpr char const* coordinate = QT_TRANSLATE_NOOP("FileError", "a coordinate");

bool isText(std::string_view head)
{
    return std::ranges::none_of(head, [](char c) {
        return static_cast<unsigned char>(c) < 0x20 && !isBlank(c) && c != '\n';
    });
}

/// Reads the grammar of the format: facets as most programs write them many at a time, all else
/// word by word.
class FacetParser
{
public:
    FacetParser(InputFile& input, TakeFacets const& take)
        : m_path(input.path()),
          m_lines(input, std::min<std::uint64_t>(bufferBytes, input.size() + 1)),
          m_take(take)
    {}

    void parse()
    {
        expect("solid");
        do {
            parseSolid();
        } while (startsAnotherSolid());
    }

    FileError hasNoFacet() const
    {
        return error(FileError::tr("the file has no facet; a mesh was expected."));
    }

private:
    void parseSolid()
    {
        m_rest = {};  // the solid's name
        for (;;) {
            takeUsualFacets();
            std::string_view const word = nextWord(facetOrEnd);
            if (isKeyword(word, "endsolid"))
                break;
            if (!isKeyword(word, "facet"))
                throw unexpected(word, FileError::tr(facetOrEnd));
            parseFacet();
        }
        m_rest = {};
    }

    bool startsAnotherSolid()
    {
        std::string_view word;
        while ((word = takeWord(m_rest)).empty())
            if (!m_lines.next(m_rest))
                return false;
        if (!isKeyword(word, "solid"))
            throw unexpected(word, FileError::tr("'solid' or the end of the file"));
        return true;
    }

    /// Where a line begins, as many facets as the text ahead begins with.
    void takeUsualFacets()
    {
        if (!std::ranges::all_of(m_rest, isBlank))
            return;
        AsciiFacets const facets = scanAsciiFacets(m_lines.ahead());
        if (facets.count() == 0)
            return;
        m_lines.skip(facets.bytes, facets.count() * AsciiFacets::linesPerFacet);
        m_rest = {};
        m_take(facets.facets);
    }

    void parseFacet()
    {
        expect("normal");
        for (int i = 0; i < 3; ++i)
            nextWord(QT_TRANSLATE_NOOP(
                "FileError", "the normal's number"));  // not used, and not a number in some files
        expect("outer");
        expect("loop");
        Facet facet;
        for (UPoint3<float>& corner : facet)
            corner = parseCorner();
        expect("endloop");
        expect("endfacet");
        m_take({&facet, 1});
    }

    UPoint3<float> parseCorner()
    {
        expect("vertex");
        UPoint3<float> point;
        for (int i = 0; i < 3; ++i) {
            std::string_view const word = nextWord(coordinate);
            auto const value = coordinateFrom(word);
            if (!value)
                throw unexpected(word, FileError::tr(coordinate));
            point[i] = *value;
        }
        if (!std::isfinite(point.X()) || !std::isfinite(point.Y()) || !std::isfinite(point.Z()))
            throw error(FileError::tr(
                "a coordinate is not a finite number in the range of single precision."));
        return point;
    }

    std::string_view nextWord(char const* expected)
    {
        for (;;) {
            std::string_view const word = takeWord(m_rest);
            if (!word.empty())
                return word;
            if (!m_lines.next(m_rest))
                throw error(
                    FileError::tr("the file ends here, where %1 was expected; it is truncated.")
                        .arg(FileError::tr(expected)));
        }
    }

    void expect(char const* keyword)
    {
        std::string_view const word = nextWord(keyword);
        if (!isKeyword(word, keyword))
            throw unexpected(word, quoted(keyword));
    }

    FileError unexpected(std::string_view word, QString const& expected) const
    {
        return error(
            FileError::tr("%1 was expected, but there is %2.").arg(expected, quoted(word)));
    }

    FileError error(QString const& problem) const
    {
        return FileError::atLine(m_path, m_lines.lineNumber(), problem);
    }

    std::filesystem::path const& m_path;
    LineReader m_lines;
    TakeFacets const& m_take;
    std::string_view m_rest;
};

}  // namespace

bool looksLikeAsciiStl(std::string_view head)
{
    auto const start = std::ranges::find_if(head, [](char c) { return !isBlank(c) && c != '\n'; });
    std::string_view const text = head.substr(std::size_t(start - head.begin()));
    if (!isKeyword(text.substr(0, 5), "solid") || !isText(text))
        return false;
    if (text.size() > 5 && !isBlank(text[5]) && text[5] != '\n')
        return false;
    std::string lowered(text.substr(5));
    std::ranges::transform(lowered, lowered.begin(), lower);
    return lowered.find("facet") != lowered.npos || lowered.find("endsolid") != lowered.npos;
}

void readAsciiFacets(InputFile& input, TakeFacets const& take)
{
    FacetParser(input, take).parse();
}

std::unique_ptr<MeshKernel> readAsciiStl(InputFile& input)
{
    requireMemoryFor(input.size() / bytesPerFacet / 4, input.path());
    MeshBuilder builder(input.size() / bytesPerFacet / 2, input.size() / bytesPerFacet / 4);
    std::vector<UVertex<float>*> joined;
    TakeFacets const join = [&](std::span<Facet const> facets) {
        joined.resize(facets.size() * 3);
        builder.points().join({facets.front().data(), joined.size()}, joined.data());
        for (std::size_t i = 0; i < joined.size(); i += 3)
            builder.addTriangle(joined[i], joined[i + 1], joined[i + 2]);
    };
    FacetParser parser(input, join);
    parser.parse();
    if (builder.isEmpty())
        throw parser.hasNoFacet();
    return builder.finish();
}

}  // namespace Formats
