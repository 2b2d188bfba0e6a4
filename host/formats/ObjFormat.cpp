// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/ObjFormat.h"

#include "host/formats/MeshSource.h"
#include "host/formats/ObjReader.h"
#include "host/formats/TextTokens.h"

#include <algorithm>
#include <array>

namespace Formats {
namespace {

std::string objectName(std::string name)
{
    std::ranges::replace_if(
        name, [](char c) { return static_cast<unsigned char>(c) <= 0x20; }, '_');
    return name;
}

void writePart(OutputFile& output, NamedMesh const& part, std::uint64_t firstPosition,
               StepProgress& steps)
{
    MeshSource mesh(*part.kernel);
    mesh.numberVertices();
    output.write("o " + objectName(part.name) + "\n");
    std::string text;
    for (std::size_t i = 0; i < mesh.vertexCount(); ++i) {
        steps.step();
        UPoint3<float> const p = mesh.point(i);
        text.clear();
        text += 'v';
        for (int k = 0; k < 3; ++k)
            appendNumber(text += ' ', p[k]);
        output.write(text += '\n');
    }
    for (std::size_t i = 0; i < mesh.triangleCount(); ++i) {
        steps.step();
        text.clear();
        text += 'f';
        for (std::uint32_t const index : mesh.indices(i))
            appendNumber(text += ' ', firstPosition + index);
        output.write(text += '\n');
    }
}

}  // namespace

bool ObjFormat::recognises(std::string_view head, std::uint64_t) const
{
    // There is no mark of the format; its first statement that is no comment must be one of these.
    constexpr std::array<std::string_view, 11> statements = {
        "v", "vt", "vn", "vp", "f", "o", "g", "s", "mtllib", "usemtl", "l"};
    if (head.find('\0') != head.npos)
        return false;
    while (!head.empty()) {
        std::string_view line = head.substr(0, head.find('\n'));
        head.remove_prefix(std::min(line.size() + 1, head.size()));
        std::string_view const word = takeWord(line);
        if (!word.empty() && !word.starts_with('#'))
            return std::ranges::find(statements, word) != statements.end();
    }
    return false;
}

std::vector<LoadedPart> ObjFormat::read(InputFile& input, std::string const& defaultName) const
{
    std::vector<LoadedPart> parts;
    parts.push_back({defaultName, ObjReader(input).read()});
    return parts;
}

void ObjFormat::write(OutputFile& output, std::span<NamedMesh const> parts,
                      Progress const& progress) const
{
    std::uint64_t steps = 0;
    for (NamedMesh const& part : parts)
        steps +=
            part.kernel->readMesh()->vertices.size() + part.kernel->readMesh()->triangles.size();
    StepProgress stepProgress(progress, steps);
    std::uint64_t firstPosition = 1;
    output.write("# millimetres\n");
    for (NamedMesh const& part : parts) {
        writePart(output, part, firstPosition, stepProgress);
        firstPosition += part.kernel->readMesh()->vertices.size();
    }
}

}  // namespace Formats
