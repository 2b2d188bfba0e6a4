// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

/// Whether the first word of a command line stands where a sub-command should, and is none.
bool isUnknownCommand(CLI::App const& commandLine, std::string const& word);

/// Says that it is none, and which one may be meant.
std::string unknownCommand(CLI::App const& commandLine, std::string const& word);

/// Says of the first long option that the command has not got, and which one may be meant; none if
/// there is no such option.
///
/// words  what was typed behind the name of the program
std::optional<std::string> unknownOption(CLI::App const& commandLine,
                                         std::vector<std::string> const& words);
