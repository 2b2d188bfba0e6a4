// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/ThreeMfFormat.h"

#include "host/formats/ThreeMfReader.h"
#include "host/formats/ThreeMfWriter.h"

namespace Formats {

bool ThreeMfFormat::recognises(std::string_view head, std::uint64_t) const
{
    return head.starts_with("PK\3\4");
}

std::vector<LoadedPart> ThreeMfFormat::read(InputFile& input, std::string const& defaultName) const
{
    return ThreeMfReader(input, defaultName, input.progress()).read();
}

void ThreeMfFormat::write(OutputFile& output, std::span<NamedMesh const> parts,
                          Progress const& progress) const
{
    ThreeMfWriter(output, progress).write(parts);
}

}  // namespace Formats
