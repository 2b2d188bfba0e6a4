// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/OffFormat.h"

#include "host/formats/IndexedMesh.h"
#include "host/formats/OffReader.h"

namespace Formats {

bool OffFormat::recognises(std::string_view head, std::uint64_t) const
{
    std::string_view line = head.substr(0, head.find('\n'));
    return OffReader::isKeyword(takeWord(line));
}

std::vector<LoadedPart> OffFormat::read(InputFile& input, std::string const& defaultName) const
{
    std::vector<LoadedPart> parts;
    parts.push_back({defaultName, OffReader(input).read()});
    return parts;
}

void OffFormat::write(OutputFile& output, std::span<NamedMesh const> parts,
                      Progress const& progress) const
{
    MeshCounts const counts = countsOf(parts);
    std::string header = "OFF\n";
    appendNumber(header, counts.vertices);
    appendNumber(header += ' ', counts.triangles);
    output.write(header += " 0\n");
    TextMeshRecords records;
    writeIndexedMesh(output, parts, progress, records);
}

}  // namespace Formats
