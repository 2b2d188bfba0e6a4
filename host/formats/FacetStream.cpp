// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/FacetStream.h"

#include "host/formats/AsciiStlReader.h"
#include "host/formats/BinaryPlyFacets.h"
#include "host/formats/BinaryStlReader.h"
#include "host/formats/FileError.h"
#include "host/formats/FormatRegistry.h"
#include "host/formats/TextTokens.h"
#include "host/memory/AvailableMemory.h"

#include <algorithm>
#include <cmath>

namespace Formats {
namespace {

enum class Kind
{
    Other,
    AsciiStl,
    BinaryStl,
    BinaryPly
};

Kind kindOf(InputFile const& input)
{
    std::array<char, MeshFormat::recognitionBytes> buffer;
    std::size_t const count = input.peekHead(std::as_writable_bytes(std::span(buffer)));
    std::string_view const head = withoutByteOrderMark({buffer.data(), count});
    if (looksLikeAsciiStl(head))
        return Kind::AsciiStl;
    if (looksLikeBinaryStl({buffer.data(), count}, input.size()))
        return Kind::BinaryStl;
    bool const isPly = head.starts_with("ply") && head.find("format binary_") != head.npos;
    return isPly ? Kind::BinaryPly : Kind::Other;
}

bool isFinite(Facet const& facet)
{
    return std::ranges::all_of(facet, [](UPoint3<float> const& p) {
        // A sum of numbers is none only if one of them is none, or the sum too large.
        return std::isfinite(p.X() + p.Y() + p.Z()) ||
               (std::isfinite(p.X()) && std::isfinite(p.Y()) && std::isfinite(p.Z()));
    });
}

/// Lets finite facets pass.
class FiniteFacets
{
public:
    FiniteFacets(std::filesystem::path const& path, TakeFacets const& take)
        : m_path(path), m_take(take)
    {}

    void operator()(std::span<Facet const> facets)
    {
        auto const wrong = std::ranges::find_if_not(facets, isFinite);
        if (wrong != facets.end())
            throw FileError(m_path,
                            FileError::tr("a coordinate of triangle %1 is not a finite number.")
                                .arg(m_done + std::uint64_t(wrong - facets.begin()) + 1));
        m_done += facets.size();
        m_take(facets);
    }

private:
    std::filesystem::path const& m_path;
    TakeFacets const& m_take;
    std::uint64_t m_done = 0;
};

}  // namespace

bool canBeStreamed(InputFile const& input)
{
    return kindOf(input) != Kind::Other;
}

bool fitsIntoMemory(InputFile const& input)
{
    // What a cut in memory takes at its peak for each byte of a binary file; text has fewer triangles.
    constexpr std::uint64_t memoryPerByte = 8;
    std::uint64_t const share = kindOf(input) == Kind::AsciiStl ? 5 : 1;
    return input.size() / share <= availableMemory() / memoryPerByte;
}

void streamFacets(InputFile& input, TakeFacets const& take)
{
    switch (kindOf(input)) {
        case Kind::AsciiStl:
            return readAsciiFacets(input, FiniteFacets(input.path(), take));
        case Kind::BinaryStl:
            return streamBinaryStl(
                input.path(), [&](std::span<std::byte> buffer) { return input.read(buffer); },
                take);
        case Kind::BinaryPly:
            return readBinaryPlyFacets(input, FiniteFacets(input.path(), take));
        case Kind::Other:
            break;
    }
    throw FileError(input.path(),
                    FileError::tr("it cannot be cut while it is read: only STL and binary PLY "
                                  "files can."));
}

void streamBinaryStl(std::filesystem::path const& name, BinaryStl::ReadBytes const& read,
                     TakeFacets const& take)
{
    std::uint32_t const count = BinaryStl::readCount(name, read);
    BinaryStl::readFacets(name, count, read, FiniteFacets(name, take));
}

}  // namespace Formats
