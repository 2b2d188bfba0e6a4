// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/MeshFormat.h"
#include "host/formats/MeshSource.h"
#include "host/formats/TextTokens.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>

/// What formats have in common that write one list of vertices and one of faces over their numbers.
namespace Formats {

struct MeshCounts
{
    std::uint64_t vertices = 0;
    std::uint64_t triangles = 0;
};

/// Of all parts together.
inline MeshCounts countsOf(std::span<NamedMesh const> parts)
{
    MeshCounts counts;
    for (NamedMesh const& part : parts) {
        counts.vertices += part.kernel->readMesh()->vertices.size();
        counts.triangles += part.kernel->readMesh()->triangles.size();
    }
    return counts;
}

/// Vertices as "x y z" and faces as "3 a b c", a line each.
class TextMeshRecords
{
public:
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

/// Writes the vertices of all parts, then their triangles with numbers from 0.
///
/// records  writes a point, and the three numbers of a triangle
template <typename Records>
void writeIndexedMesh(OutputFile& output, std::span<NamedMesh const> parts,
                      Progress const& progress, Records& records)
{
    MeshCounts const counts = countsOf(parts);
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

}  // namespace Formats
