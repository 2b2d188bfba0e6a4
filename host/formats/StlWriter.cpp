// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/StlWriter.h"

#include "host/formats/MeshSource.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

namespace Formats {
namespace {

constexpr std::size_t recordBytes = 50;
constexpr std::size_t recordsPerWrite = 1024;

void writeHeader(OutputFile& output, std::uint32_t count)
{
    // The text must not begin with "solid": some programs take that for the ASCII form.
    std::array<char, 80> header{};
    constexpr std::string_view text = "binary STL, millimetres";
    std::ranges::copy(text, header.begin());
    output.write(std::as_bytes(std::span(header)));
    output.write(std::as_bytes(std::span(&count, 1)));
}

void putRecord(std::byte* place, std::array<UPoint3<float>, 3> const& corners)
{
    UVector3<float> const normal = unitNormal(corners);
    std::memcpy(place, &normal, sizeof normal);
    std::memcpy(place + sizeof normal, corners.data(), sizeof corners);
    std::memset(place + sizeof normal + sizeof corners, 0, 2);
}

}  // namespace

void writeBinaryStl(OutputFile& output, std::span<NamedMesh const> parts, Progress const& progress)
{
    std::uint64_t const total = totalTriangles(parts);
    if (total > std::numeric_limits<std::uint32_t>::max())
        throw FileError(
            output.path(),
            FileError::tr("binary STL holds at most 4294967295 triangles; use another format."));
    writeHeader(output, std::uint32_t(total));
    StepProgress steps(progress, total);
    std::array<std::byte, recordsPerWrite * recordBytes> block;
    for (NamedMesh const& part : parts) {
        MeshSource const mesh(*part.kernel);
        std::size_t filled = 0;
        for (std::size_t i = 0; i < mesh.triangleCount(); ++i) {
            steps.step();
            mesh.prefetch(i);
            putRecord(&block[filled], mesh.corners(i));
            filled += recordBytes;
            if (filled == block.size() || i + 1 == mesh.triangleCount()) {
                output.write(std::span(block).first(filled));
                filled = 0;
            }
        }
    }
}

}  // namespace Formats
