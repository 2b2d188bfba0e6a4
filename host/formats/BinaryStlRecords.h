// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/Facet.h"
#include "host/formats/FileError.h"
#include "host/formats/OutputFile.h"
#include "platform/geometry/UVector3.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <functional>
#include <span>

namespace Formats {

/// Of a binary STL: a header with the number of triangles, then a record for each.
namespace BinaryStl {

inline constexpr std::size_t headerBytes = 84;
inline constexpr std::size_t countOffset = 80;
inline constexpr std::size_t recordBytes = 50;
inline constexpr std::size_t normalBytes = 12;

/// Where the triangles end that a header announces.
inline std::uint64_t endOfTriangles(std::uint32_t count)
{
    return headerBytes + std::uint64_t(count) * recordBytes;
}

/// Says that a file ends at a byte, before so many triangles.
FileError endsTooEarly(std::filesystem::path const& path, std::uint64_t end, std::uint32_t count);

/// Fills a buffer as far as there is something to read, and returns how many bytes that were.
using ReadBytes = std::function<std::size_t(std::span<std::byte>)>;

/// Reads the header of what is named `path`, from its first byte on. Throws FileError if it ends too
/// early or announces no triangles.
std::uint32_t readCount(std::filesystem::path const& path, ReadBytes const& read);

/// Hands on so many facets, some dozens at a time. Their coordinates may be anything.
///
/// throws  FileError if there are fewer
void readFacets(std::filesystem::path const& path, std::uint32_t count, ReadBytes const& read,
                TakeFacets const& take);

/// Writes the header of a file with so many triangles.
void writeHeader(OutputFile& output, std::uint32_t count);

/// Puts the record of a triangle to a place with room for it.
inline void putRecord(std::byte* place, Facet const& corners, UVector3<float> const& normal)
{
    std::memcpy(place, &normal, sizeof normal);
    std::memcpy(place + sizeof normal, corners.data(), sizeof corners);
    std::memset(place + sizeof normal + sizeof corners, 0, 2);
}

/// For more than a header can count.
FileError tooManyTriangles(std::filesystem::path const& path);

}  // namespace BinaryStl
}  // namespace Formats
