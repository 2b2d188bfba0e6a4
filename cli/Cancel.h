// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// The user's wish to stop: Ctrl-C, a polite termination, or a terminal that has gone. It is only
/// noted here; the progress display hands it to whatever runs.
namespace Cancel {

/// Notes the signals from now on instead of dying from them.
void listen();

bool isRequested();

/// The program's exit status after a cancel.
int exitStatus();

}  // namespace Cancel
