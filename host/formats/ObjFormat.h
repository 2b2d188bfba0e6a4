// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/MeshFormat.h"

namespace Formats {

/// Wavefront OBJ: positions and faces. Objects and groups are joined in one part, since they divide
/// a body by material as often as into bodies. Polygons are split into triangles; texture
/// coordinates, normals, materials, lines and free-form surfaces are skipped.
class ObjFormat : public MeshFormat
{
public:
    std::string_view name() const override { return "obj"; }
    std::string_view title() const override { return "Wavefront OBJ"; }
    std::vector<std::string_view> extensions() const override { return {"obj"}; }
    bool recognises(std::string_view head, std::uint64_t fileSize) const override;
    std::vector<LoadedPart> read(InputFile& input, std::string const& defaultName) const override;
    void write(OutputFile& output, std::span<NamedMesh const> parts,
               Progress const& progress) const override;
};

}  // namespace Formats
