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

/// While one lives, such a signal ends the program at once. For work that cannot be interrupted, that
/// may take long, and of which nothing lasts: no file may be open that would be left behind.
class AtOnce
{
public:
    /// throws  Mell::AbortException "Aborting..." if a signal has come before
    AtOnce();
    ~AtOnce();
    AtOnce(AtOnce const&) = delete;
    AtOnce& operator=(AtOnce const&) = delete;
};

}  // namespace Cancel
