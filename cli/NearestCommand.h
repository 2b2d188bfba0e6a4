// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace CLI {
class App;
}

/// Whether the first word of a command line stands where a sub-command should, and is none.
bool isUnknownCommand(CLI::App const& commandLine, std::string const& word);

/// Says that it is none, and which one may be meant.
std::string unknownCommand(CLI::App const& commandLine, std::string const& word);
