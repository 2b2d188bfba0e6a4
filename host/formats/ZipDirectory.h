// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/InputFile.h"

#include <string>
#include <vector>

namespace Formats {

/// The names of the entries of a ZIP package, from its directory alone; empty for a file that is
/// none or is damaged. Throws FileError if the system cannot read on.
std::vector<std::string> zipEntryNames(InputFile& input);

}  // namespace Formats
