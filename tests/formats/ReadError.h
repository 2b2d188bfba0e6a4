// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/PartFiles.h"

#include <filesystem>
#include <string>

/// The text of the FileError that reading a file gives; empty if there is none.
inline std::string readError(std::filesystem::path const& path)
{
    try {
        Formats::readParts(path);
    } catch (Formats::FileError const& error) {
        return error.what();
    }
    return {};
}
