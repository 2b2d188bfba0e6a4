// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/jobs/ProgressSink.h"
#include "platform/mesh/MeshKernel.h"

#include <memory>
#include <string>
#include <variant>
#include <vector>

/// A part in memory, which nobody changes.
struct StoredPart
{
    std::string name;
    /// Null if it was cut while its part was read, and is in its file alone.
    std::shared_ptr<MeshKernel const> kernel;
    /// Where it has been written; empty for nowhere.
    std::string file;
};

/// A part, or the name of a file.
using Input = std::variant<StoredPart, std::string>;

/// What has become of a command.
struct CommandOutcome
{
    /// As that of the program.
    int status = 0;
    /// Why it, or a part of it, has failed.
    std::vector<std::string> complaints;
    std::vector<std::string> remarks;
    /// For each part that was read, its pieces.
    std::vector<std::vector<StoredPart>> pieces;
    /// A JSON object; empty if there is none.
    std::string report;
};

/// Runs a sub-command, on the thread of the commands.
///
/// words  the sub-command and its options, without files
CommandOutcome runCommand(std::vector<std::string> const& words, std::vector<Input> const& inputs,
                          bool wantsFiles, Base::ProgressSink& sink);

/// Writes a part, on the thread of the commands.
///
/// format   as its name in the registry; empty for what the file's extension says
/// returns  why it cannot be written, or an empty text
std::string writeFile(StoredPart const& part, std::string const& file, std::string const& format,
                      bool force, Base::ProgressSink& sink);

/// Sub-commands and their options as JSON: for each a list of objects with "name", "value", "repeats",
/// "choices" and "help".
std::string describeCommands();
