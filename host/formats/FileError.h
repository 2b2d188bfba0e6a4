// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/jobs/Exceptions.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace Formats {

/// A file cannot be read or written. The text names the file, the place in it where one is known,
/// and what was expected there. Nothing has been changed by the operation that throws it.
class FileError : public Mell::Exception
{
public:
    FileError(std::filesystem::path const& path, std::string const& problem);

    /// For binary content; `offset` counts bytes from 0.
    static FileError atByte(std::filesystem::path const& path, std::uint64_t offset,
                            std::string const& problem);
    /// For text; `line` counts from 1.
    static FileError atLine(std::filesystem::path const& path, std::uint64_t line,
                            std::string const& problem);
};

}  // namespace Formats
