// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>

namespace Formats {

/// What a mesh takes per triangle in bytes while a file is read: the records, their places in the
/// lists, half a vertex, and the table that joins points.
constexpr std::uint64_t bytesPerTriangle = 112;

/// Throws FileError if a mesh of so many triangles does not fit into the available memory. A count
/// from a file's header is asked here before anything is allocated for it.
void requireMemoryFor(std::uint64_t triangles, std::filesystem::path const& path);

}  // namespace Formats
