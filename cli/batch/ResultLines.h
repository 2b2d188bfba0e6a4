// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/batch/JobResult.h"

#include <optional>
#include <string>
#include <vector>

namespace Formats {
class OutputFile;
}

/// The results of a batch in the order of its jobs: to standard output as soon as none before is
/// missing, or to a file that appears when it is complete.
class ResultLines
{
public:
    /// target  a file, which is replaced, or "-" for standard output
    /// throws  Formats::FileError if no file can be made there
    ResultLines(std::string const& target, std::size_t count);
    ~ResultLines();

    void set(std::size_t place, std::string line);
    /// All are there.
    void finish();

private:
    void write(std::string const& line);

    std::unique_ptr<Formats::OutputFile> m_file;
    std::vector<std::optional<std::string>> m_lines;
    std::size_t m_written = 0;
};
