// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/MeshFormat.h"

namespace Formats {

/// STL, binary and ASCII. Either class instance reads both, told apart by content; they differ in
/// what they write. A file is one part: several solids in an ASCII file are joined, since a solid
/// of its own is in practice a colour or a layer of one body.
class StlFormat : public MeshFormat
{
public:
    enum class Encoding
    {
        Binary,
        Ascii
    };

    explicit StlFormat(Encoding written) : m_written(written) {}

    std::string_view name() const override;
    std::string_view title() const override;
    std::vector<std::string_view> extensions() const override;
    bool recognises(std::string_view head, std::uint64_t fileSize) const override;
    std::vector<LoadedPart> read(InputFile& input, std::string const& defaultName) const override;
    void write(OutputFile& output, std::span<NamedMesh const> parts,
               Progress const& progress) const override;

private:
    Encoding m_written;
};

}  // namespace Formats
