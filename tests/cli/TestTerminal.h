// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

class QProcess;

/// Runs a process, whose arguments are set, with its standard error on a terminal of its own. Returns
/// what was written there until it ended; empty if there are no terminals to be had.
std::string shownOnTerminal(QProcess& process);
