// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/CorpusParts.h"

#include <filesystem>
#include <functional>

namespace corpus {

/// Reads every model of a folder, not of those in it, in the order of their names, and calls
/// `visit` with it. Its kind is what is wrong with it. Models much smaller or larger than what
/// people print are brought to 100 mm. What cannot be read is named on stderr.
void forEachModel(std::filesystem::path const& folder,
                  std::function<void(Part const&)> const& visit);

}  // namespace corpus
