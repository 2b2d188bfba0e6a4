// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/MeshFormat.h"

namespace Formats {

/// PLY: ASCII and both binary forms are read; little-endian binary or ASCII is written. A file is
/// one part.
class PlyFormat : public MeshFormat
{
public:
    enum class Encoding
    {
        Binary,
        Ascii
    };

    explicit PlyFormat(Encoding written) : m_written(written) {}

    std::string_view name() const override;
    std::string_view title() const override;
    std::vector<std::string_view> extensions() const override { return {"ply"}; }
    bool recognises(std::string_view head, std::uint64_t fileSize) const override;
    std::vector<LoadedPart> read(InputFile& input, std::string const& defaultName) const override;
    void write(OutputFile& output, std::span<NamedMesh const> parts,
               Progress const& progress) const override;

private:
    Encoding m_written;
};

}  // namespace Formats
