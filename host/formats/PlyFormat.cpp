// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/PlyFormat.h"

#include "host/formats/MeshSource.h"
#include "host/formats/PlyReader.h"
#include "host/formats/TextTokens.h"

#include <QtGlobal>

#include <array>
#include <bit>
#include <cstring>

static_assert(std::endian::native == std::endian::little, "binary files are written as in memory");

namespace Formats {
namespace {

struct Counts
{
    std::uint64_t vertices = 0;
    std::uint64_t triangles = 0;
};

Counts countsOf(std::span<NamedMesh const> parts)
{
    Counts counts;
    for (NamedMesh const& part : parts) {
        counts.vertices += part.kernel->readMesh()->vertices.size();
        counts.triangles += part.kernel->readMesh()->triangles.size();
    }
    return counts;
}

void writeHeader(OutputFile& output, std::string_view encoding, Counts const& counts)
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

class TextRecords
{
public:
    static constexpr std::string_view encoding = "ascii";

    void write(OutputFile& output, UPoint3<float> const& p)
    {
        m_text.clear();
        for (int i = 0; i < 3; ++i) {
            appendNumber(m_text, p[i]);
            m_text += i == 2 ? '\n' : ' ';
        }
        output.write(m_text);
    }
    void write(OutputFile& output, std::array<std::uint32_t, 3> const& triangle)
    {
        m_text.clear();
        m_text += '3';
        for (std::uint32_t const index : triangle)
            appendNumber(m_text += ' ', std::uint64_t(index));
        output.write(m_text += '\n');
    }

private:
    std::string m_text;
};

template <typename Records>
void writeMesh(OutputFile& output, std::span<NamedMesh const> parts, Progress const& progress,
               Records records)
{
    Counts const counts = countsOf(parts);
    writeHeader(output, Records::encoding, counts);
    StepProgress steps(progress, counts.vertices + counts.triangles);
    for (NamedMesh const& part : parts) {
        MeshSource const mesh(*part.kernel);
        for (std::size_t i = 0; i < mesh.vertexCount(); ++i) {
            steps.step();
            records.write(output, mesh.point(i));
        }
    }
    std::uint32_t first = 0;
    for (NamedMesh const& part : parts) {
        MeshSource mesh(*part.kernel);
        mesh.numberVertices();
        for (std::size_t i = 0; i < mesh.triangleCount(); ++i) {
            steps.step();
            auto const [a, b, c] = mesh.indices(i);
            records.write(output, std::array{first + a, first + b, first + c});
        }
        first += std::uint32_t(mesh.vertexCount());
    }
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
