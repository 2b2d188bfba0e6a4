// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/batch/JobProcess.h"

#include <string>

namespace CLI {
class App;
}

struct BatchOptions
{
    /// "-" for standard input.
    std::string list;
    /// The command line whose jobs are written instead of done; empty for none.
    std::string make;
    /// The lines of all parts of a list are joined instead of done.
    bool isMerge = false;
    /// Empty for none that lasts.
    std::string state;
    /// A file, or "-" for standard output.
    std::string results = "-";
    /// As typed; empty for the whole list.
    std::string shard;
    JobLimits limits;
    /// 0 for as many as there are cores.
    int jobsAtOnce = 0;
    /// Of all that run, in megabytes; 0 for most of what is free.
    double memoryMb = 0;
    bool retryFailed = false;
    /// Results without times and memory.
    bool isStable = false;
    bool quiet = false;

    void addTo(CLI::App& command);
    /// Throws UsageError.
    void check() const;
};
