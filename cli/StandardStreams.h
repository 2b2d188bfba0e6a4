// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"
#include "cli/PieceOptions.h"

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

/// What stands for standard input among files, and for standard output as a folder.
inline constexpr char const* standardStream = "-";

/// A folder that goes with its object.
class SpoolFolder
{
public:
    /// throws  Formats::FileError
    SpoolFolder();
    ~SpoolFolder();
    SpoolFolder(SpoolFolder const&) = delete;
    SpoolFolder& operator=(SpoolFolder const&) = delete;

    std::filesystem::path const& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

/// Standard input as a file named "stdin", since formats are told by looking into a file twice.
///
/// throws  Formats::FileError; Mell::AbortException if the user cancels
std::filesystem::path spoolStandardInput(SpoolFolder const& folder);

/// Fills a buffer from standard input as far as it goes, and returns how many bytes that were.
///
/// throws  Formats::FileError; Mell::AbortException if the user cancels
std::size_t readStandardInput(std::span<std::byte> buffer);

/// Writes the only piece of all parts to standard output.
///
/// throws  UsageError if there are several; Formats::FileError; Mell::AbortException if the user
///         cancels
void writeToStandardOutput(std::vector<CutPart>& parts, PieceOptions const& options);
