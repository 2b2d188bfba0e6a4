// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/MemoryNeed.h"

#include "host/formats/FileError.h"
#include "host/memory/AvailableMemory.h"

namespace Formats {

void requireMemoryFor(std::uint64_t triangles, std::filesystem::path const& path)
{
    std::uint64_t const needed = triangles * bytesPerTriangle;
    std::uint64_t const available = availableMemory();
    if (needed <= available)
        return;
    constexpr std::uint64_t mebibyte = 1 << 20;
    throw FileError(path, FileError::tr("%1 triangles need %2 MiB of memory, but only %3 MiB are "
                                        "free; close other programs or reduce the mesh first.")
                              .arg(triangles)
                              .arg(needed / mebibyte)
                              .arg(available / mebibyte));
}

}  // namespace Formats
