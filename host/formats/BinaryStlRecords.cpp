// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/BinaryStlRecords.h"

#include <algorithm>
#include <bit>
#include <string_view>
#include <vector>

static_assert(std::endian::native == std::endian::little, "binary STL is little-endian");

namespace Formats::BinaryStl {
namespace {

/// Triangles of one read: about 1.6 MB, so that the bytes are still in the cache when they are
/// used.
constexpr std::size_t recordsPerRead = 32768;
/// Triangles that are handed on together.
constexpr std::size_t recordsPerBatch = 64;

void handOn(std::span<std::byte const> bytes, TakeFacets const& take)
{
    std::array<Facet, recordsPerBatch> facets;
    std::size_t const records = bytes.size() / recordBytes;
    for (std::size_t done = 0; done < records; done += recordsPerBatch) {
        std::size_t const count = std::min(recordsPerBatch, records - done);
        for (std::size_t i = 0; i < count; ++i)
            std::memcpy(&facets[i], &bytes[(done + i) * recordBytes + normalBytes],
                        sizeof facets[i]);
        take(std::span(facets).first(count));
    }
}

}  // namespace

FileError endsTooEarly(std::filesystem::path const& path, std::uint64_t end, std::uint32_t count)
{
    return FileError::atByte(
        path, end,
        FileError::tr("the file ends here, but its header announces %1 triangles, "
                      "which end at byte %2; it is truncated or no STL file.")
            .arg(count)
            .arg(endOfTriangles(count)));
}

std::uint32_t readCount(std::filesystem::path const& path, ReadBytes const& read)
{
    std::array<std::byte, headerBytes> header;
    std::size_t const present = read(header);
    if (present < headerBytes)
        throw FileError::atByte(
            path, present,
            FileError::tr("the file ends within the 84 bytes of a binary STL header; "
                          "it is truncated or no STL file."));
    std::uint32_t count = 0;
    std::memcpy(&count, header.data() + countOffset, sizeof count);
    if (count == 0)
        throw FileError::atByte(
            path, countOffset,
            FileError::tr("the header announces no triangles, but a mesh was expected."));
    return count;
}

void readFacets(std::filesystem::path const& path, std::uint32_t count, ReadBytes const& read,
                TakeFacets const& take)
{
    std::vector<std::byte> buffer(std::min<std::size_t>(count, recordsPerRead) * recordBytes);
    for (std::uint64_t done = 0; done < count;) {
        std::size_t const wanted = std::min<std::uint64_t>(count - done, recordsPerRead);
        auto const bytes = std::span(buffer).first(wanted * recordBytes);
        std::size_t const present = read(bytes);
        if (present < bytes.size())
            throw endsTooEarly(path, headerBytes + done * recordBytes + present, count);
        handOn(bytes, take);
        done += wanted;
    }
}

void writeHeader(OutputFile& output, std::uint32_t count)
{
    // The text must not begin with "solid": some programs take that for the ASCII form.
    std::array<char, countOffset> header{};
    constexpr std::string_view text = "binary STL, millimetres";
    std::ranges::copy(text, header.begin());
    output.write(std::as_bytes(std::span(header)));
    output.write(std::as_bytes(std::span(&count, 1)));
}

FileError tooManyTriangles(std::filesystem::path const& path)
{
    return FileError(
        path, FileError::tr("binary STL holds at most 4294967295 triangles; use another format."));
}

}  // namespace Formats::BinaryStl
