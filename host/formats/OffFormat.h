// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/MeshFormat.h"

namespace Formats {

/// OFF as text, as geometry programs exchange it: vertices, then faces over their numbers. Normals, colours and
/// texture coordinates are skipped. A file is one part.
class OffFormat : public MeshFormat
{
public:
    std::string_view name() const override { return "off"; }
    std::string_view title() const override { return "OFF"; }
    std::vector<std::string_view> extensions() const override { return {"off"}; }
    bool recognises(std::string_view head, std::uint64_t fileSize) const override;
    std::vector<LoadedPart> read(InputFile& input, std::string const& defaultName) const override;
    void write(OutputFile& output, std::span<NamedMesh const> parts,
               Progress const& progress) const override;
};

}  // namespace Formats
