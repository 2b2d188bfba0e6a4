// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/InputFile.h"
#include "platform/mesh/MeshKernel.h"

#include <memory>
#include <string_view>

namespace Formats {

/// Whether a file is a binary STL: what its header counts is there, with at most a little padding
/// behind it. The header's text says nothing; many binary files begin with "solid".
bool looksLikeBinaryStl(std::string_view head, std::uint64_t fileSize);

/// Reads a binary STL. Bytes behind the triangles that the header counts are ignored, as some
/// programs pad their files. The stored normals are not used. Throws FileError for a file that ends
/// too early, coordinates that are not finite, and a mesh without triangles.
std::unique_ptr<MeshKernel> readBinaryStl(InputFile& input);

}  // namespace Formats
