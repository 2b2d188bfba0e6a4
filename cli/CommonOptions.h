// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/SourceFiles.h"

#include <string>
#include <vector>

class Caller;
namespace CLI {
class App;
}

/// What all sub-commands understand.
struct CommonOptions
{
    std::vector<std::string> files;
    /// Where the report goes: a file, "-" for standard output, empty for nowhere.
    std::string report;
    int threads = 0;
    /// As typed; empty for 1.
    std::string scaleText;
    /// One of the units that the command line knows.
    std::string unit = "mm";
    bool quiet = false;
    /// Folders stand for the files of the folders in them too.
    bool isRecursive = false;

    void addTo(CLI::App& command);

    /// By what the coordinates of the parts are multiplied. Throws UsageError.
    SourceScale scale() const;
    /// Whether the table for people goes to standard output.
    bool wantsTable() const { return !quiet && report != "-"; }
};

/// For commands that take any number of files: these may be in folders, and one that fails does not
/// end the command.
void addManyFiles(CLI::App& command, CommonOptions& common, bool& keepGoing);

/// Plugs the caller's progress in and limits the threads. Throws UsageError for what is wrong in the
/// options.
void applyCommonOptions(CommonOptions const& options, Caller& caller);
