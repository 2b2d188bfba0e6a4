// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/MeshFormat.h"
#include "host/formats/ThreeMfModel.h"

namespace Formats {

/// Writes parts as a 3MF file in millimetres: one object and one build item each. The library
/// writes coordinates to the nanometre. Where the library cannot finish, FileError is thrown.
class ThreeMfWriter
{
public:
    ThreeMfWriter(OutputFile& output, Progress const& progress);

    void write(std::span<NamedMesh const> parts);

private:
    void addPart(NamedMesh const& part, std::size_t place);
    void fillMesh(ThreeMfHandle const& object, MeshKernel const& kernel);
    void writePackage();
    void check(LIB3MFRESULT result, ThreeMfHandle const& object) const;

    OutputFile& m_output;
    Progress const& m_progress;
    ThreeMfHandle m_model;
};

}  // namespace Formats
