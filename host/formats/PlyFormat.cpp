// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/PlyFormat.h"

#include "host/formats/IndexedMesh.h"
#include "host/formats/PlyReader.h"
#include "host/formats/TextTokens.h"

#include <QtGlobal>

#include <array>
#include <bit>
#include <cstring>

static_assert(std::endian::native == std::endian::little, "binary files are written as in memory");

namespace Formats {
namespace {

void writeHeader(OutputFile& output, std::string_view encoding, MeshCounts const& counts)
{
    std::string text = "ply\nformat ";
    text += encoding;
    text += " 1.0\ncomment millimetres\nelement vertex ";
    appendNumber(text, counts.vertices);
    text += "\nproperty float x\nproperty float y\nproperty float z\nelement face ";
    appendNumber(text, counts.triangles);
    text += "\nproperty list uchar uint vertex_indices\nend_header\n";
    output.write(text);
}

/// How numbers are put into the file.
class BinaryRecords
{
public:
    static constexpr std::string_view encoding = "binary_little_endian";

    void write(OutputFile& output, UPoint3<float> const& p)
    {
        output.write(std::as_bytes(std::span(&p, 1)));
    }
    void write(OutputFile& output, std::array<std::uint32_t, 3> const& triangle)
    {
        std::array<std::byte, 1 + sizeof triangle> record{std::byte(3)};
        std::memcpy(&record[1], triangle.data(), sizeof triangle);
        output.write(record);
    }
};

class TextRecords : public TextMeshRecords
{
public:
    static constexpr std::string_view encoding = "ascii";
};

template <typename Records>
void writeMesh(OutputFile& output, std::span<NamedMesh const> parts, Progress const& progress,
               Records records)
{
    writeHeader(output, Records::encoding, countsOf(parts));
    writeIndexedMesh(output, parts, progress, records);
}

}  // namespace

std::string_view PlyFormat::name() const
{
    return m_written == Encoding::Binary ? "ply" : "ply-ascii";
}

std::string_view PlyFormat::title() const
{
    return m_written == Encoding::Binary ? QT_TRANSLATE_NOOP("Formats", "PLY, binary")
                                         : QT_TRANSLATE_NOOP("Formats", "PLY, ASCII");
}

bool PlyFormat::recognises(std::string_view head, std::uint64_t) const
{
    return head.starts_with("ply\n") || head.starts_with("ply\r\n");
}

std::vector<LoadedPart> PlyFormat::read(InputFile& input, std::string const& defaultName) const
{
    std::vector<LoadedPart> parts;
    parts.push_back({defaultName, PlyReader(input).read()});
    return parts;
}

void PlyFormat::write(OutputFile& output, std::span<NamedMesh const> parts,
                      Progress const& progress) const
{
    if (m_written == Encoding::Binary)
        writeMesh(output, parts, progress, BinaryRecords());
    else
        writeMesh(output, parts, progress, TextRecords());
}

}  // namespace Formats
