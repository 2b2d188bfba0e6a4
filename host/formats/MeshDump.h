// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/OutputFile.h"
#include "platform/mesh/MeshKernel.h"

#include <filesystem>
#include <memory>

namespace Formats {

// Meshes bit by bit, as fast as the disk takes them, with a checksum: for what a program writes for
// itself alone and reads again on the same machine. Not a format to exchange parts in.

/// Writes points and corners in the order of the lists. The file appears under its name when it is
/// complete, or not at all.
///
/// mesh    only read; it may be shared
/// throws  FileError
/// thread  any
void writeMeshDump(std::filesystem::path const& path, std::shared_ptr<UMesh<float> const> mesh);

/// Reads one back: the same points and corners in the same order, normals from the geometry,
/// identifiers in list order. The kernel's matrix is the identity.
///
/// throws  FileError for a file that is not there, not whole, or not as it was written
/// thread  any
std::unique_ptr<MeshKernel> readMeshDump(std::filesystem::path const& path);

}  // namespace Formats
