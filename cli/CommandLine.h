// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/SubCommands.h"

#include <string>

/// Adds all sub-commands, with their options and help. Command line and action must outlive each other's
/// use: to parse sets the action.
void addCommands(CLI::App& commandLine, Action& action);

/// Runs the chosen sub-command. What it throws becomes a complaint to the caller.
///
/// returns  the exit status
int runFor(Caller& caller, Action const& action);
