// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/Facet.h"
#include "host/formats/InputFile.h"

namespace Formats {

/// Hands on the faces of a binary PLY file as they are read, some thousands at a time. The vertices stay
/// in the file, where they are looked up: they must come first and be of one size, and the faces must be
/// triangles.
///
/// throws  FileError for what is no such file, ends too early, or names a vertex that is not there
/// cost    some nanoseconds a face while faces that follow each other use vertices that do
void readBinaryPlyFacets(InputFile& input, TakeFacets const& take);

}  // namespace Formats
