// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/BinaryStlReader.h"

#include "host/formats/FileError.h"
#include "host/formats/MemoryNeed.h"
#include "host/formats/MeshBuilder.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <vector>

static_assert(std::endian::native == std::endian::little, "binary STL is little-endian");

namespace Formats {
namespace {

constexpr std::size_t headerBytes = 84;
constexpr std::size_t countOffset = 80;
constexpr std::size_t recordBytes = 50;
constexpr std::size_t normalBytes = 12;
/// Triangles of one read: about 1.6 MB, so that the bytes are still in the cache when they are
/// used.
constexpr std::size_t recordsPerRead = 32768;
/// Triangles whose points are joined together.
constexpr std::size_t recordsPerBatch = 64;
/// The most that a file may have behind its triangles, unless it is triangles again.
constexpr std::uint64_t paddingBytes = 4096;

std::uint32_t countIn(std::string_view header)
{
    std::uint32_t count = 0;
    std::memcpy(&count, header.data() + countOffset, sizeof count);
    return count;
}

std::uint64_t endOfTriangles(std::uint32_t count)
{
    return headerBytes + std::uint64_t(count) * recordBytes;
}

std::uint32_t readCount(InputFile& input)
{
    std::array<char, headerBytes> header;
    if (input.read(std::as_writable_bytes(std::span(header))) < headerBytes)
        throw FileError::atByte(
            input.path(), input.size(),
            FileError::tr("the file ends within the 84 bytes of a binary STL header; "
                          "it is truncated or no STL file."));
    std::uint32_t const count = countIn({header.data(), header.size()});
    if (endOfTriangles(count) > input.size())
        throw FileError::atByte(
            input.path(), input.size(),
            FileError::tr("the file ends here, but its header announces %1 triangles, "
                          "which end at byte %2; it is truncated or no STL file.")
                .arg(count)
                .arg(endOfTriangles(count)));
    if (count == 0)
        throw FileError::atByte(
            input.path(), countOffset,
            FileError::tr("the header announces no triangles, but a mesh was expected."));
    return count;
}

/// Joins and adds the triangles of a piece of the file.
///
/// firstRecord  of the piece, for error messages
void addRecords(MeshBuilder& builder, std::span<std::byte const> bytes, std::uint64_t firstRecord,
                InputFile const& input)
{
    std::array<UPoint3<float>, recordsPerBatch * 3> points;
    std::array<UVertex<float>*, recordsPerBatch * 3> vertices;
    std::size_t const records = bytes.size() / recordBytes;
    for (std::size_t done = 0; done < records; done += recordsPerBatch) {
        std::size_t const count = std::min(recordsPerBatch, records - done);
        for (std::size_t i = 0; i < count; ++i)
            std::memcpy(&points[i * 3], &bytes[(done + i) * recordBytes + normalBytes],
                        3 * sizeof points[0]);
        std::size_t const joined =
            builder.points().join(std::span(points).first(count * 3), vertices.data());
        if (joined < count * 3)
            throw FileError::atByte(input.path(),
                                    headerBytes + (firstRecord + done + joined / 3) * recordBytes +
                                        normalBytes + (joined % 3) * sizeof points[0],
                                    FileError::tr("a coordinate is not a finite number; three "
                                                  "coordinates of a corner were expected."));
        for (std::size_t i = 0; i < count; ++i)
            builder.addTriangle(vertices[i * 3], vertices[i * 3 + 1], vertices[i * 3 + 2]);
    }
}

/// Throws if behind the triangles that the header announces there are more of them. Padding is let
/// pass.
void checkEnd(InputFile& input, std::uint32_t count)
{
    std::uint64_t const behind = input.size() - endOfTriangles(count);
    std::vector<std::byte> rest(std::min(behind, paddingBytes));
    rest.resize(input.read(rest));
    bool const isZero = std::ranges::all_of(rest, [](std::byte b) { return b == std::byte(0); });
    if (behind > paddingBytes || (behind > 0 && behind % recordBytes == 0 && !isZero))
        throw FileError::atByte(
            input.path(), countOffset,
            FileError::tr("the header announces %1 triangles, but the file holds %2; one of the "
                          "two is damaged. Export the part again.")
                .arg(count)
                .arg(count + behind / recordBytes));
}

}  // namespace

bool looksLikeBinaryStl(std::string_view head, std::uint64_t fileSize)
{
    if (head.size() < headerBytes)
        return false;
    std::uint64_t const end = endOfTriangles(countIn(head));
    return end <= fileSize && fileSize - end <= paddingBytes;
}

std::unique_ptr<MeshKernel> readBinaryStl(InputFile& input)
{
    std::uint32_t const count = readCount(input);
    requireMemoryFor(count, input.path());
    // A closed surface has half as many points as triangles.
    MeshBuilder builder(count, count / 2 + 16);
    std::size_t const bufferBytes = std::min<std::size_t>(count, recordsPerRead) * recordBytes;
    std::vector<std::byte> buffer(bufferBytes);
    for (std::uint64_t done = 0; done < count;) {
        std::size_t const wanted = std::min<std::uint64_t>(count - done, recordsPerRead);
        auto const bytes = std::span(buffer).first(wanted * recordBytes);
        if (input.read(bytes) < bytes.size())
            throw FileError::atByte(
                input.path(), input.position(),
                FileError::tr("the file has become shorter while it was read."));
        addRecords(builder, bytes, done, input);
        done += wanted;
    }
    checkEnd(input, count);
    if (builder.isEmpty())
        throw FileError::atByte(
            input.path(), headerBytes,
            FileError::tr("no triangle has three different corners; a mesh was expected."));
    return builder.finish();
}

}  // namespace Formats
