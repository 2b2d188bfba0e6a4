// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <vector>

/// Puts finished files where they belong: all of them or none. A file that is there already with the
/// same content is as good as the new one, which is so after a run that was killed at this.
///
/// mayReplace  files with other content
/// returns     their places, in the same order
/// throws      Formats::FileError; then none of them is new
std::vector<std::filesystem::path> deliver(std::vector<std::filesystem::path> const& files,
                                           std::filesystem::path const& folder, bool mayReplace);
