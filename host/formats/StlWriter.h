// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/MeshFormat.h"

namespace Formats {

/// Write all parts as one STL mesh, with unit normals computed from the corners. Throw FileError;
/// for the binary form also when there are more triangles than its header can count.
void writeBinaryStl(OutputFile& output, std::span<NamedMesh const> parts, Progress const& progress);
void writeAsciiStl(OutputFile& output, std::span<NamedMesh const> parts, Progress const& progress);

}  // namespace Formats
