// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/Soup.h"

#include <filesystem>
#include <string>
#include <vector>

namespace corpus {

/// What a process may use.
struct Limits
{
    int seconds = 60;
    std::size_t megabytes = 6000;
};

/// How a process ended.
struct Outcome
{
    enum class End
    {
        Exit,
        Signal,
        Timeout
    };

    End end = End::Exit;
    /// The exit status or the signal.
    int status = 0;
    double seconds = 0;
    std::size_t peakMegabytes = 0;
    std::string errors;
};

/// Runs a program in a folder. What it prints is dropped, what it says on stderr kept.
Outcome runLimited(std::string const& program, std::vector<std::string> const& arguments,
                   std::filesystem::path const& folder, Limits const& limits);

void writeStl(std::filesystem::path const& path, Soup const& soup);
/// A binary STL file, read without the product's help, points joined. Empty if it is none.
Soup readStl(std::filesystem::path const& path);

}  // namespace corpus
