// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutOptions.h"
#include "cli/CutRun.h"

#include <string>
#include <vector>

/// Why parts are cut while they are read.
enum class Streaming
{
    /// They are not.
    No,
    AsAsked,
    /// One of the files would not fit into memory, and all of them can be cut while they are read.
    ForSize,
};

/// Sets `stream` if parts that would not fit into memory can be cut while they are read. What cannot be
/// looked at is left to the run.
///
/// inMemory  options of the command that were given and need parts in memory
/// throws    UsageError if --stream was given, and what else is asked for needs parts in memory
Streaming chooseStreaming(CutOptions& options, Caller& caller, std::vector<std::string> inMemory);

/// Says so if nobody asked for it.
void tellOfStreaming(CutRun& run, Streaming streaming);
