// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/FileError.h"

namespace Formats {

FileError::FileError(std::filesystem::path const& path, std::string const& problem)
    : Mell::Exception("File '" + path.string() + "': " + problem)
{}

FileError FileError::atByte(std::filesystem::path const& path, std::uint64_t offset,
                            std::string const& problem)
{
    return FileError(path, "byte " + std::to_string(offset) + ": " + problem);
}

FileError FileError::atLine(std::filesystem::path const& path, std::uint64_t line,
                            std::string const& problem)
{
    return FileError(path, "line " + std::to_string(line) + ": " + problem);
}

}  // namespace Formats
