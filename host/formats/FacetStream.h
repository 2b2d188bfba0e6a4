// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/BinaryStlRecords.h"
#include "host/formats/Facet.h"
#include "host/formats/InputFile.h"

namespace Formats {

/// Whether the triangles of a file can be handed on as they are read: STL of both kinds, binary PLY.
bool canBeStreamed(InputFile const& input);

/// Whether there is memory for the mesh of such a file and for its pieces.
bool fitsIntoMemory(InputFile const& input);

/// Hands on the triangles of a file as they are read, without the mesh ever being in memory.
///
/// take    is given finite coordinates
/// throws  FileError
void streamFacets(InputFile& input, TakeFacets const& take);

/// The same for a binary STL that comes from a pipe. What follows its triangles is not looked at.
///
/// name  for messages
void streamBinaryStl(std::filesystem::path const& name, BinaryStl::ReadBytes const& read,
                     TakeFacets const& take);

}  // namespace Formats
