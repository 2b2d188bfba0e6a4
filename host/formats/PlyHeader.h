// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/LineReader.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Formats {

enum class PlyEncoding
{
    Ascii,
    LittleEndian,
    BigEndian
};

enum class PlyType
{
    Int8,
    UInt8,
    Int16,
    UInt16,
    Int32,
    UInt32,
    Float,
    Double
};

std::size_t sizeOf(PlyType type);

struct PlyProperty
{
    std::string name;
    PlyType type = PlyType::Float;
    bool isList = false;
    PlyType countType = PlyType::UInt8;
};

struct PlyElement
{
    std::string name;
    std::uint64_t count = 0;
    std::vector<PlyProperty> properties;

    /// The fewest bytes an instance can take in a binary file.
    std::uint64_t smallestSize() const;
};

/// The header of a PLY file: what follows it, in which order.
struct PlyHeader
{
    PlyEncoding encoding = PlyEncoding::Ascii;
    std::vector<PlyElement> elements;
};

/// 0, 1 or 2 for a property that is a coordinate, x, y or z; else -1.
int axisOf(PlyProperty const& property);
/// Whether a property is a face's list of vertices.
bool holdsCorners(PlyProperty const& property);

/// Reads up to and with "end_header". Throws FileError with the line.
PlyHeader readPlyHeader(InputFile const& input, LineReader& lines);

}  // namespace Formats
