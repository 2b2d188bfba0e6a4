// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/Soup.h"

#include <string>

/// Writes a binary STL file without normals.
void writeStl(Soup const& soup, std::string const& path);

/// The path of a file with a real model or, where the real ones are not there, with one made here in
/// the same manner, which is written into a folder.
///
/// name  "fandisk-13k.stl" for a mechanical part; any other for a scan
std::string modelFile(std::string const& name, std::string const& folder);
