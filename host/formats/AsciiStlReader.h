// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/Facet.h"
#include "host/formats/InputFile.h"
#include "platform/mesh/MeshKernel.h"

#include <memory>
#include <string_view>

namespace Formats {

/// Whether a file is an ASCII STL: it begins with "solid", holds nothing but text, and goes on with
/// a keyword of that format.
bool looksLikeAsciiStl(std::string_view head);

/// Reads an ASCII STL, keywords in any case, layout of the lines free. Several solids are joined.
/// The stored normals are not used. Throws FileError, with the line, for anything else than the
/// word or number that the format has there, and for a file that ends before "endsolid".
std::unique_ptr<MeshKernel> readAsciiStl(InputFile& input);

/// The same, handing on the facets as they are read.
void readAsciiFacets(InputFile& input, TakeFacets const& take);

}  // namespace Formats
