// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

/// Files as they were given, with folders and patterns replaced by the files that they stand for. A folder
/// stands for the mesh files in it, by their extensions; a pattern such as "parts/*.stl" for what it matches,
/// if no file has that very name. What comes from one of them is in the order of the names.
///
/// isRecursive  a folder stands for the files of the folders in it too; links to folders are not followed
/// throws       Formats::FileError for a folder or a pattern that stands for nothing, or cannot be read
std::vector<std::string> sourceFiles(std::vector<std::string> const& given, bool isRecursive);
