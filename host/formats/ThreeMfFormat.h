// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/MeshFormat.h"

namespace Formats {

/// 3MF. Every mesh object that the build places becomes a part, once per placement, with the
/// transforms of its components and of its build item applied; other objects are skipped. Lengths
/// are converted to millimetres. A written file has one object and one build item per part.
class ThreeMfFormat : public MeshFormat
{
public:
    std::string_view name() const override { return "3mf"; }
    std::string_view title() const override { return "3MF"; }
    std::vector<std::string_view> extensions() const override { return {"3mf"}; }
    bool recognises(std::string_view head, std::uint64_t fileSize) const override;
    bool namesUnit() const override { return true; }
    std::vector<LoadedPart> read(InputFile& input, std::string const& defaultName) const override;
    void write(OutputFile& output, std::span<NamedMesh const> parts,
               Progress const& progress) const override;
};

}  // namespace Formats
