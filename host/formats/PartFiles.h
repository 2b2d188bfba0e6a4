// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/FormatRegistry.h"

namespace Formats {

/// Reads the parts of a file, whose format is told by its content. Points that coincide exactly are
/// joined, and triangles that thereby lose a corner are left out. Coordinates are millimetres.
///
/// progress  percentages; may throw, and what it throws is let pass
/// throws    FileError
/// thread    any
/// cost      binary STL: about 0.1 s per million triangles, and 112 bytes of memory for each
std::vector<LoadedPart> readParts(std::filesystem::path const& path,
                                  std::function<void(int)> const& progress = {});

/// Writes a part; the kernel is only read, and its matrix applied. The file appears under its name
/// when it is complete, or not at all. The same part gives the same bytes.
///
/// progress  percentages; may throw, and what it throws is let pass
/// throws    FileError
/// thread    any
void writePart(std::filesystem::path const& path, std::string const& name, MeshKernel const& kernel,
               MeshFormat const& format, std::function<void(int)> const& progress,
               Overwrite overwrite);

/// The same for several parts in one file.
void writeParts(std::filesystem::path const& path, std::span<NamedMesh const> parts,
                MeshFormat const& format, std::function<void(int)> const& progress,
                Overwrite overwrite);

}  // namespace Formats
