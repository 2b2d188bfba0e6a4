// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/StlWriter.h"

#include "host/formats/BinaryStlRecords.h"
#include "host/formats/MeshSource.h"

#include <array>
#include <limits>

namespace Formats {
namespace {

constexpr std::size_t recordsPerWrite = 1024;

using BinaryStl::recordBytes;

}  // namespace

void writeBinaryStl(OutputFile& output, std::span<NamedMesh const> parts, Progress const& progress)
{
    std::uint64_t const total = totalTriangles(parts);
    if (total > std::numeric_limits<std::uint32_t>::max())
        throw BinaryStl::tooManyTriangles(output.path());
    BinaryStl::writeHeader(output, std::uint32_t(total));
    StepProgress steps(progress, total);
    std::array<std::byte, recordsPerWrite * recordBytes> block;
    for (NamedMesh const& part : parts) {
        MeshSource const mesh(*part.kernel);
        std::size_t filled = 0;
        for (std::size_t i = 0; i < mesh.triangleCount(); ++i) {
            steps.step();
            mesh.prefetch(i);
            Facet const corners = mesh.corners(i);
            BinaryStl::putRecord(&block[filled], corners, unitNormal(corners));
            filled += recordBytes;
            if (filled == block.size() || i + 1 == mesh.triangleCount()) {
                output.write(std::span(block).first(filled));
                filled = 0;
            }
        }
    }
}

}  // namespace Formats
