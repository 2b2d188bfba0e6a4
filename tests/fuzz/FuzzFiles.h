// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/Soup.h"

#include <string>

/// Writes a mesh as binary STL, replacing the file.
void writeFuzzStl(std::string const& name, Soup const& soup);
